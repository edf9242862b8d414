#include "list_views.h"

#include <algorithm>
#include <utility>

#include "forms/shown_entry.h"
#include "forms/user_actions.h"
#include "text/windows/wide.h"
#include "tool_tips.h"
#include "window_view.h"

namespace kvrnstep::windows {

namespace {

/// Between the edge of a list and its entries.
constexpr int kEntryInset = 2;

/// Messages that list boxes and combo boxes both have, under different numbers.
struct FillMessages {
  UINT clear;
  UINT reserve;
  UINT add;
};

/// Replaces all entries. Drawing is off meanwhile, which makes thousands of them fast; Wine draws
/// the scroll bar for each of them all the same unless the window counts as hidden.
void fill(HWND list, const FillMessages& messages, const std::vector<std::u16string>& entries) {
  const bool visible = (::GetWindowLongPtrW(list, GWL_STYLE) & WS_VISIBLE) != 0;
  std::size_t bytes = 0;
  for (const std::u16string& entry : entries) bytes += (entry.size() + 1) * sizeof(char16_t);
  ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  if (visible) ::DefWindowProcW(list, WM_SETREDRAW, FALSE, 0);
  ::SendMessageW(list, messages.clear, 0, 0);
  ::SendMessageW(list, messages.reserve, entries.size(), static_cast<LPARAM>(bytes));
  for (const std::u16string& entry : entries) {
    ::SendMessageW(list, messages.add, 0, reinterpret_cast<LPARAM>(text::wide(entry)));
  }
  if (visible) ::DefWindowProcW(list, WM_SETREDRAW, TRUE, 0);
  ::SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  ::InvalidateRect(list, nullptr, TRUE);
}

}  // namespace

ListView::ListView(WindowView& window, forms::ListBox& list) : ControlView(window, list) {
  create(WC_LISTBOXW,
         WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED |
             LBS_HASSTRINGS,
         WS_EX_CLIENTEDGE);
}

std::optional<LRESULT> ListView::told(UINT message, WPARAM wide, LPARAM longer) {
  if (message != WM_DRAWITEM) return ControlView::told(message, wide, longer);
  draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(longer));
  return TRUE;
}

/// As the system draws entries, but for those that are too wide.
void ListView::draw(const DRAWITEMSTRUCT& entry) const {
  const bool selected = (entry.itemState & ODS_SELECTED) != 0;
  const bool enabled = (entry.itemState & ODS_DISABLED) == 0;
  ::FillRect(entry.hDC, &entry.rcItem,
             ::GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (entry.itemID < shownItems().size()) {
    ::SetTextColor(entry.hDC, ::GetSysColor(selected  ? COLOR_HIGHLIGHTTEXT
                                            : enabled ? COLOR_WINDOWTEXT
                                                      : COLOR_GRAYTEXT));
    ::SetBkMode(entry.hDC, TRANSPARENT);
    const std::u16string shown = shownOf(entry.hDC, shownItems()[entry.itemID]);
    ::TextOutW(entry.hDC, entry.rcItem.left + kEntryInset, entry.rcItem.top, text::wide(shown),
               static_cast<int>(shown.size()));
  }
  const bool marked = (entry.itemState & ODS_FOCUS) != 0;
  if (marked && (entry.itemState & ODS_NOFOCUSRECT) == 0) {
    ::DrawFocusRect(entry.hDC, &entry.rcItem);
  }
}

std::u16string ListView::shownOf(HDC context, const std::u16string& entry) const {
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  return forms::shownEntry(control().row(), entry, static_cast<int>(inside.right) - 2 * kEntryInset,
                           [context](const std::u16string& part) {
                             SIZE size{};
                             ::GetTextExtentPoint32W(context, text::wide(part),
                                                     static_cast<int>(part.size()), &size);
                             return static_cast<int>(size.cx);
                           });
}

/// The tip shows the whole entry under the mouse if it is not drawn as a whole.
void ListView::hover(LPARAM where) {
  const auto found = static_cast<DWORD>(::SendMessageW(handle(), LB_ITEMFROMPOINT, 0, where));
  const bool outside = HIWORD(found) != 0 || LOWORD(found) >= shownItems().size();
  std::u16string tip = outside ? std::u16string() : shownItems()[LOWORD(found)];
  auto* const font = reinterpret_cast<HFONT>(::SendMessageW(handle(), WM_GETFONT, 0, 0));
  if (shownOf(Drawing(handle(), font), tip) == tip) tip.clear();
  if (std::exchange(tip_, tip) != tip) changeToolTip(window().tips(), handle(), tip);
}

void ListView::commanded(int notification) {
  if (notification == LBN_SELCHANGE) {
    userSelectedEntry(asked(LB_GETCURSEL));
  } else if (notification == LBN_DBLCLK && !applying()) {
    forms::userDoubleClickedEntry(static_cast<forms::ListBox&>(control()), asked(LB_GETCURSEL));
  }
}

LRESULT ListView::received(UINT message, WPARAM wide, LPARAM longer) {
  const LRESULT result = ControlView::received(message, wide, longer);
  switch (message) {
    case WM_SETFONT: {
      const LONG line = Drawing(handle(), reinterpret_cast<HFONT>(wide)).metrics().tmHeight;
      ::SendMessageW(handle(), LB_SETITEMHEIGHT, 0, line);
      break;
    }
    case WM_MOUSEMOVE:
      hover(longer);
      break;
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_KEYDOWN:
    case WM_TIMER:
    case LB_SETTOPINDEX:
      userMayHaveScrolled();
      break;
    default:
      break;
  }
  return result;
}

int ListView::asked(UINT message) const {
  return static_cast<int>(::SendMessageW(handle(), message, 0, 0));
}

std::optional<forms::PixelPoint> ListView::menuPlace() const {
  RECT entry{};
  const auto index = static_cast<WPARAM>(std::max(asked(LB_GETCURSEL), asked(LB_GETTOPINDEX)));
  ::SendMessageW(handle(), LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&entry));
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  POINT below{entry.left, std::clamp(entry.bottom, inside.top, inside.bottom)};
  ::ClientToScreen(handle(), &below);
  return forms::PixelPoint{static_cast<int>(below.x), static_cast<int>(below.y)};
}

int ListView::find(const std::u16string& text) const {
  constexpr auto kBeforeTheFirst = static_cast<WPARAM>(-1);
  return static_cast<int>(::SendMessageW(handle(), LB_FINDSTRINGEXACT, kBeforeTheFirst,
                                         reinterpret_cast<LPARAM>(text::wide(text))));
}

forms::Scroll ListView::scroll() const {
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  const int line = asked(LB_GETITEMHEIGHT);
  const int lines = line > 0 ? static_cast<int>(inside.bottom) / line : 0;
  return {asked(LB_GETTOPINDEX), std::max(0, static_cast<int>(shownItems().size()) - lines)};
}

void ListView::setItems(const std::vector<std::u16string>& items) {
  fill(handle(), {LB_RESETCONTENT, LB_INITSTORAGE, LB_ADDSTRING}, items);
}

void ListView::setIndex(int index) {
  if (index == asked(LB_GETCURSEL)) return;
  ::SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void ListView::setTopIndex(int index) {
  ::SendMessageW(handle(), LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
}

ComboView::ComboView(WindowView& window, forms::ComboBox& combo)
    : ControlView(window, combo), edit_(combo) {
  create(WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ::GetComboBoxInfo(handle(), &parts);
  edit_.begin(parts.hwndItem);
  const std::u16string hint(combo.row().hint);
  ::SendMessageW(parts.hwndItem, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(text::wide(hint)));
}

void ComboView::commanded(int notification) {
  if (applying()) return;
  if (notification == CBN_EDITCHANGE) edit_.userChangedText();
  const bool chosen = notification == CBN_SELENDOK || notification == CBN_SELCHANGE;
  chosen_ = chosen_ || chosen;
  // Dropping the list down may have completed the text.
  changed_ = changed_ || chosen || notification == CBN_CLOSEUP;
}

LRESULT ComboView::received(UINT message, WPARAM wide, LPARAM longer) {
  ++depth_;
  const LRESULT result = ControlView::received(message, wide, longer);
  // The box tells of a chosen entry before it takes over its text, so this waits for the end of
  // the outermost message.
  if (--depth_ == 0 && std::exchange(changed_, false)) takeOver();
  return result;
}

void ComboView::takeOver() {
  mark(forms::Property::Text);
  mark(forms::Property::Index);
  if (std::exchange(chosen_, false) && selected() >= 0) {
    userSelectedEntry(selected());
  } else {
    window().update();
  }
}

int ComboView::selected() const {
  return static_cast<int>(::SendMessageW(handle(), CB_GETCURSEL, 0, 0));
}

bool ComboView::usesKeys() const {
  return ::SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void ComboView::setPlace(const forms::PixelRect& place) {
  // The height includes that of the list that drops down.
  constexpr int kWithList = 13;
  ControlView::setPlace({place.left, place.top, place.width, kWithList * place.height});
  constexpr auto kBox = static_cast<WPARAM>(-1);
  RECT now{};
  ::GetWindowRect(handle(), &now);
  const auto inside = ::SendMessageW(handle(), CB_GETITEMHEIGHT, kBox, 0);
  const LRESULT wanted = place.height - (now.bottom - now.top - inside);
  if (wanted > 0 && wanted != inside) ::SendMessageW(handle(), CB_SETITEMHEIGHT, kBox, wanted);
}

void ComboView::setItems(const std::vector<std::u16string>& items) {
  fill(handle(), {CB_RESETCONTENT, CB_INITSTORAGE, CB_ADDSTRING}, items);
}

void ComboView::setIndex(int index) {
  if (selected() != index) ::SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

}  // namespace kvrnstep::windows
