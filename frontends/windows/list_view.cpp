#include "list_view.h"

#include <algorithm>

#include "entries.h"
#include "forms/user_actions.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Property;

namespace {

/// What a change of entries comes down to: some go and others come at one place.
struct Difference {
  std::size_t place;
  std::size_t removed;
  std::size_t added;
};

Difference differenceOf(const std::vector<std::u16string>& before,
                        const std::vector<std::u16string>& after) {
  const auto [firstBefore, firstAfter] = std::ranges::mismatch(before, after);
  const auto place = static_cast<std::size_t>(firstBefore - before.begin());
  std::size_t behind = 0;
  while (behind < before.size() - place && behind < after.size() - place &&
         before[before.size() - 1 - behind] == after[after.size() - 1 - behind]) {
    ++behind;
  }
  return {place, before.size() - place - behind, after.size() - place - behind};
}

}  // namespace

ListView::ListView(WindowView& window, forms::ListBox& list) : ControlView(window, list) {
  create(WC_LISTBOXW, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
         WS_EX_CLIENTEDGE);
}

void ListView::commanded(int notification) {
  if (notification == LBN_SELCHANGE) {
    userSelectedEntry(selected());
  } else if (notification == LBN_DBLCLK && !applying()) {
    forms::userDoubleClickedEntry(list(), selected());
  }
}

LRESULT ListView::received(UINT message, WPARAM wide, LPARAM longer) {
  const LRESULT result = ControlView::received(message, wide, longer);
  if (applying()) return result;
  switch (message) {
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
  if (const auto button = releasedButton(message); button && isInside(handle(), longer)) {
    forms::userReleasedMouse(control(), *button);
  }
  return result;
}

int ListView::selected() const {
  return static_cast<int>(::SendMessageW(handle(), LB_GETCURSEL, 0, 0));
}

std::optional<POINT> ListView::menuPlace() const {
  RECT entry{};
  const auto index = static_cast<WPARAM>(std::max(selected(), top()));
  ::SendMessageW(handle(), LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&entry));
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  POINT below{entry.left, std::clamp(entry.bottom, inside.top, inside.bottom)};
  ::ClientToScreen(handle(), &below);
  return below;
}

int ListView::find(const std::u16string& text) const {
  constexpr auto kBeforeTheFirst = static_cast<WPARAM>(-1);
  return static_cast<int>(::SendMessageW(handle(), LB_FINDSTRINGEXACT, kBeforeTheFirst,
                                         reinterpret_cast<LPARAM>(text::wide(text))));
}

int ListView::top() const {
  return static_cast<int>(::SendMessageW(handle(), LB_GETTOPINDEX, 0, 0));
}

forms::Scroll ListView::scroll() const {
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  const auto line = static_cast<int>(::SendMessageW(handle(), LB_GETITEMHEIGHT, 0, 0));
  const int lines = line > 0 ? static_cast<int>(inside.bottom) / line : 0;
  return {top(), std::max(0, static_cast<int>(entries_.size()) - lines)};
}

void ListView::setItems(const std::vector<std::u16string>& wanted) {
  const Difference difference = differenceOf(entries_, wanted);
  if (difference.removed == 0 && difference.added == 0) return;
  const Undrawn undrawn(handle());
  if (difference.removed == entries_.size()) {
    ::SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    reserve(handle(), LB_INITSTORAGE, wanted);
  } else {
    for (std::size_t i = 0; i < difference.removed; ++i) {
      ::SendMessageW(handle(), LB_DELETESTRING, difference.place, 0);
    }
  }
  for (std::size_t i = difference.place; i < difference.place + difference.added; ++i) {
    ::SendMessageW(handle(), LB_INSERTSTRING, i, reinterpret_cast<LPARAM>(text::wide(wanted[i])));
  }
  entries_ = wanted;
}

void ListView::setIndex(int index) {
  if (index != selected()) ::SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void ListView::setTopIndex(int index) {
  ::SendMessageW(handle(), LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
}

}  // namespace kvrnstep::windows
