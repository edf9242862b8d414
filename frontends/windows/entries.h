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

}  // namespace kvrnstep::windows
