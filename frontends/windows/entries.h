#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "text/windows/wide.h"

/// Entries of list boxes and of combo boxes, which want the same under other names.
namespace kvrnstep::windows {

/// While it lives, nothing of a list is drawn: thousands of entries are in place at once. Some
/// systems would go on drawing the scroll bar, for each of them, unless the window counts as
/// hidden.
class Undrawn {
 public:
  explicit Undrawn(HWND list)
      : list_(list), visible_((::GetWindowLongPtrW(list, GWL_STYLE) & WS_VISIBLE) != 0) {
    ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    if (visible_) ::DefWindowProcW(list_, WM_SETREDRAW, FALSE, 0);
  }
  ~Undrawn() {
    if (visible_) ::DefWindowProcW(list_, WM_SETREDRAW, TRUE, 0);
    ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list_, nullptr, TRUE);
  }
  Undrawn(const Undrawn&) = delete;
  Undrawn& operator=(const Undrawn&) = delete;

 private:
  HWND list_;
  bool visible_;
};

/// Lets a list take all the entries at once, with `message`, LB_INITSTORAGE or CB_INITSTORAGE.
inline void reserve(HWND list, UINT message, const std::vector<std::u16string>& entries) {
  std::size_t bytes = 0;
  for (const std::u16string& entry : entries) bytes += (entry.size() + 1) * sizeof(char16_t);
  ::SendMessageW(list, message, entries.size(), static_cast<LPARAM>(bytes));
}

/// With LB_ADDSTRING or CB_ADDSTRING.
inline void add(HWND list, UINT message, const std::u16string& entry) {
  ::SendMessageW(list, message, 0, reinterpret_cast<LPARAM>(text::wide(entry)));
}

/// What asks a list for its entries.
struct EntryMessages {
  UINT count;
  UINT length;
  UINT text;
};
inline constexpr EntryMessages kListMessages{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT};
inline constexpr EntryMessages kComboMessages{CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT};

/// The entries that a list shows, a blank between them.
inline std::u16string entriesOf(HWND list, const EntryMessages& messages) {
  std::u16string result;
  const LRESULT count = ::SendMessageW(list, messages.count, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto place = static_cast<WPARAM>(i);
    const LRESULT length = std::max<LRESULT>(0, ::SendMessageW(list, messages.length, place, 0));
    std::u16string entry(static_cast<std::size_t>(length) + 1, u'\0');
    ::SendMessageW(list, messages.text, place, reinterpret_cast<LPARAM>(entry.data()));
    entry.resize(static_cast<std::size_t>(length));
    result += (i > 0 ? u" " : u"") + entry;
  }
  return result;
}

}  // namespace kvrnstep::windows
