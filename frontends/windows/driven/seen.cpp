#include <algorithm>
#include <array>

#include "text/windows/wide.h"
#include "windows_driver.h"

namespace kvrnstep::windows {

using driving::Value;
using forms::Kind;

namespace {

/// The messages that ask a list for its entries.
struct EntryMessages {
  UINT count;
  UINT length;
  UINT text;
};
constexpr EntryMessages kListMessages{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT};
constexpr EntryMessages kComboMessages{CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT};

/// The entries that a list shows, a blank between them.
std::u16string entriesOf(HWND list, const EntryMessages& messages) {
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

double asked(HWND window, UINT message) {
  return static_cast<double>(static_cast<int>(::SendMessageW(window, message, 0, 0)));
}

std::optional<Value> ofEntry(const WindowView& view, const forms::Control& entry,
                             std::string_view property) {
  const auto place = view.menus().placeOf(entry);
  if (property == "visible") return place.has_value();
  if (!place) return std::nullopt;
  std::array<wchar_t, 256> label{};
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
  item.dwTypeData = label.data();
  item.cch = label.size();
  ::GetMenuItemInfoW(place->menu, static_cast<UINT>(place->position), TRUE, &item);
  if (property == "enabled") return (item.fState & MFS_DISABLED) == 0;
  if (property == "checked") return (item.fState & MFS_CHECKED) != 0;
  if (property != "caption") return std::nullopt;
  if ((item.fType & MFT_SEPARATOR) != 0) return u"-";
  const std::u16string caption(label.data(), label.data() + item.cch);
  return caption.substr(0, caption.find(u'\t'));
}

std::u16string toolTipOf(HWND window, HWND control) {
  std::array<wchar_t, 256> text{};
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = window;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text.data();
  HWND tips = nullptr;
  do {
    tips = ::FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr);
  } while (tips != nullptr && ::GetWindow(tips, GW_OWNER) != window);
  ::SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
  return {text.data(), text.data() + std::char_traits<wchar_t>::length(text.data())};
}

std::optional<Value> ofKind(const ControlView& view, std::string_view property) {
  const HWND window = view.handle();
  switch (view.control().kind()) {
    case Kind::CheckBox:
      if (property == "value") return asked(window, BM_GETCHECK);
      [[fallthrough]];
    case Kind::OptionButton:
      if (property == "value" || property == "checked") {
        return asked(window, BM_GETCHECK) == BST_CHECKED;
      }
      [[fallthrough]];
    case Kind::Button:
    case Kind::Label:
      if (property == "caption") return textOf(window);
      return std::nullopt;
    case Kind::ComboBox:
      if (property == "items") return entriesOf(window, kComboMessages);
      if (property == "index") return asked(window, CB_GETCURSEL);
      return std::nullopt;
    case Kind::ListBox:
      if (property == "items") return entriesOf(window, kListMessages);
      if (property == "index") return asked(window, LB_GETCURSEL);
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<Value> WindowsDriver::seen(const forms::Control& control,
                                         std::string_view property) const {
  const WindowView& view = *WindowView::of(control.window());
  if (control.kind() == Kind::Menu) return ofEntry(view, control, property);
  const ControlView& drawn = view.viewOf(control);
  // IsWindowEnabled() and IsWindowVisible() would count the parents, too.
  const LONG_PTR style = ::GetWindowLongPtrW(drawn.handle(), GWL_STYLE);
  if (property == "enabled") return (style & WS_DISABLED) == 0;
  if (property == "visible") return (style & WS_VISIBLE) != 0;
  if (property == "tooltip") return toolTipOf(view.handle(), drawn.handle());
  return ofKind(drawn, property);
}

}  // namespace kvrnstep::windows
