#include "gestures.h"

#include "forms/user_actions.h"
#include "scale.h"
#include "shortcut.h"
#include "shown.h"
#include "ticker.h"
#include "user_input.h"

namespace kvrnstep::windows {

using driving::Gesture;
using forms::Chrome;
using forms::Kind;
using forms::kTwipsPerPixel;
using forms::MouseButton;
using What = Gesture::What;

namespace {

POINT middleOf(const RECT& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

/// Scrolls to the entry first, as the user has to.
bool clickListEntry(HWND list, int entry, MouseButton button, Presses presses) {
  RECT inside{};
  ::GetClientRect(list, &inside);
  const auto place = [&] {
    RECT line{};
    ::SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                   reinterpret_cast<LPARAM>(&line));
    return line;
  };
  if (place().top < inside.top || place().bottom > inside.bottom) {
    ::SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(entry), 0);
  }
  return clickAt(list, middleOf(place()), button, presses);
}

/// Puts the keyboard into the box with a click, and the caret or the mark where it is wanted.
bool enterBox(WindowView& view, const forms::TextControl& box, forms::TextSelection selection,
              const Settle& settle) {
  const HWND edit = view.viewOf(box).keyTarget();
  if (!clickOn(edit)) return false;
  settle();
  ::SendMessageW(edit, EM_SETSEL, selection.start,
                 static_cast<LPARAM>(selection.start + selection.length));
  settle();
  return true;
}

bool isEnabled(const WindowView& view, const forms::Control& entry) {
  const auto enabled = shown(view, entry, "enabled");
  return enabled && std::get<bool>(*enabled);
}

bool menuIsOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != FALSE &&
         (info.flags & GUI_INMENUMODE) != 0;
}

/// Where on the screen an entry of a menu that pops up is; nothing while it is not shown.
std::optional<POINT> pointOf(const MenuPlace& place) {
  RECT entry{};
  if (!menuIsOpen() ||
      ::GetMenuItemRect(nullptr, place.menu, static_cast<UINT>(place.position), &entry) == FALSE ||
      entry.right <= entry.left) {
    return std::nullopt;
  }
  return middleOf(entry);
}

bool pickEntry(WindowView& view, const forms::Control& entry, const Settle& settle) {
  constexpr int kPatience = 300;
  const auto place = view.menus().placeOf(entry);
  if (!place || entry.container() == nullptr || !isEnabled(view, entry)) return false;
  const auto opener = view.menus().placeOf(*entry.container());
  RECT title{};
  if (!opener || ::GetMenuItemRect(view.handle(), opener->menu, static_cast<UINT>(opener->position),
                                   &title) == FALSE) {
    return false;
  }
  ::SetForegroundWindow(view.handle());
  bool picked = false;
  int ticks = 0;
  const Ticker ticker([&] {
    if (picked || !menuIsOpen()) return;
    if (const auto point = pointOf(*place)) {
      picked = true;
      clickOnScreen(*point);
    } else if (++ticks > kPatience) {
      pressKey(VK_ESCAPE);
    }
  });
  clickOnScreen(middleOf(title));
  settle();
  return picked;
}

bool clickControl(WindowView& view, const Gesture& gesture, const Settle& settle) {
  if (gesture.control->kind() == Kind::Menu) return pickEntry(view, *gesture.control, settle);
  const HWND handle = view.viewOf(*gesture.control).keyTarget();
  const Presses presses = gesture.what == What::DoubleClick ? Presses::Twice : Presses::Once;
  const auto button = gesture.what == What::RightClick ? MouseButton::Right : MouseButton::Left;
  return gesture.entry ? clickListEntry(handle, *gesture.entry, button, presses)
                       : clickOn(handle, button, presses);
}

bool type(WindowView& view, const Gesture& gesture, const Settle& settle) {
  const auto& box = gesture.on<forms::TextControl>();
  if (!enterBox(view, box, {box.text().size(), 0}, settle)) return false;
  for (const char16_t character : gesture.text) {
    if (!view.open()) break;
    pressCharacter(character);
    settle();
  }
  return true;
}

bool clear(WindowView& view, const forms::TextControl& box, const Settle& settle) {
  if (!enterBox(view, box, {0, box.text().size()}, settle)) return false;
  pressKey(VK_DELETE);
  return true;
}

bool pressShortcut(WindowView& view, const forms::Control& entry) {
  const auto shortcut = shortcutOf(entry.row().shortcut);
  if (!shortcut || !isEnabled(view, entry)) return false;
  ::SetForegroundWindow(view.handle());
  pressKey(shortcut->key, shortcut->control ? VK_CONTROL : 0);
  return true;
}

bool chooseEntry(WindowView& view, const Gesture& gesture, const Settle& settle) {
  const HWND box = view.viewOf(*gesture.control).handle();
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (::GetComboBoxInfo(box, &parts) == FALSE || !clickAt(box, middleOf(parts.rcButton))) {
    return false;
  }
  settle();
  return ::IsWindowVisible(parts.hwndList) != FALSE &&
         clickListEntry(parts.hwndList, *gesture.entry, MouseButton::Left, Presses::Once);
}

bool clickArrow(WindowView& view, const Gesture& gesture) {
  const HWND arrows = view.viewOf(*gesture.control).handle();
  RECT inside{};
  ::GetClientRect(arrows, &inside);
  const LONG quarter = inside.bottom / 4;
  const bool up = gesture.what == What::SpinUp;
  return clickAt(arrows, {inside.right / 2, up ? quarter : inside.bottom - quarter});
}

bool drag(WindowView& view, const Gesture& gesture, const Settle& settle) {
  const HWND source = view.viewOf(*gesture.control).handle();
  const HWND target = view.viewOf(*gesture.target).handle();
  auto start = reachablePoint(source);
  auto end = reachablePoint(target);
  if (!start || !end) return false;
  ::ClientToScreen(source, &*start);
  ::ClientToScreen(target, &*end);
  ::SetForegroundWindow(view.handle());
  moveMouse(*start);
  pressLeft();
  settle();
  for (const POINT& point : {POINT{(start->x + end->x) / 2, (start->y + end->y) / 2}, *end}) {
    moveMouse(point);
    settle();
  }
  releaseLeft();
  return true;
}

bool move(WindowView& view, double left, double top, const Settle& settle) {
  const POINT wanted{toPixels(left / kTwipsPerPixel, desktopDpi()),
                     toPixels(top / kTwipsPerPixel, desktopDpi())};
  ::SetWindowPos(view.handle(), nullptr, wanted.x, wanted.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  settle();
  RECT now{};
  ::GetWindowRect(view.handle(), &now);
  // The screen knows whole pixels only; the rest is told of in the same way.
  if (view.open() && now.left == wanted.x && now.top == wanted.y) {
    forms::userMoved(view.window(), left, top);
  }
  return true;
}

bool resize(WindowView& view, double width, double height, const Settle& settle) {
  RECT outside{};
  RECT inside{};
  ::GetWindowRect(view.handle(), &outside);
  ::GetClientRect(view.handle(), &inside);
  const int dpi = view.dpi();
  const SIZE wanted{toPixels((width - Chrome::kSides) / kTwipsPerPixel, dpi),
                    toPixels((height - Chrome::kTitleAndBorders) / kTwipsPerPixel, dpi)};
  ::SetWindowPos(
      view.handle(), nullptr, 0, 0, wanted.cx + outside.right - outside.left - inside.right,
      wanted.cy + outside.bottom - outside.top - inside.bottom, SWP_NOMOVE | SWP_NOZORDER);
  settle();
  if (!view.open()) return true;
  ::GetClientRect(view.handle(), &inside);
  // The screen knows whole pixels only; the rest is told of in the same way.
  if (inside.right == wanted.cx && inside.bottom == wanted.cy) {
    forms::userResized(view.window(), width, height);
  }
  return true;
}

bool minimize(WindowView& view, bool minimized, const Settle& settle) {
  ::PostMessageW(view.handle(), WM_SYSCOMMAND, minimized ? SC_MINIMIZE : SC_RESTORE, 0);
  settle();
  return view.window().minimized() == minimized;
}

bool begin(WindowView& view, const Gesture& gesture, const Settle& settle) {
  switch (gesture.what) {
    case What::Click:
    case What::DoubleClick:
    case What::RightClick:
      return clickControl(view, gesture, settle);
    case What::Type:
      return type(view, gesture, settle);
    case What::Clear:
      return clear(view, gesture.on<forms::TextControl>(), settle);
    case What::Select:
      return enterBox(view, gesture.on<forms::TextControl>(), gesture.selection(), settle);
    case What::Press:
      return pressShortcut(view, *gesture.control);
    case What::Choose:
      return chooseEntry(view, gesture, settle);
    case What::SpinUp:
    case What::SpinDown:
      return clickArrow(view, gesture);
    case What::Drag:
      return drag(view, gesture, settle);
    case What::Pick:
      return pickEntry(view, *gesture.control, settle);
    case What::Move:
      return move(view, gesture.numbers[0], gesture.numbers[1], settle);
    case What::Resize:
      return resize(view, gesture.numbers[0], gesture.numbers[1], settle);
    case What::Minimize:
    case What::Restore:
      return minimize(view, gesture.what == What::Minimize, settle);
    case What::Close:
      return ::PostMessageW(view.handle(), WM_SYSCOMMAND, SC_CLOSE, 0) != FALSE;
    case What::Escape:
      break;
  }
  return false;
}

}  // namespace

bool carryOut(WindowView& view, const Gesture& gesture, const Settle& settle) {
  const bool done = begin(view, gesture, settle);
  settle();
  return done;
}

bool popUpIsShown(const WindowView& view, const forms::MenuEntry& menu) {
  return pointOf({view.menus().menuOf(menu), 0}).has_value();
}

bool pickFromPopUp(const WindowView& view, const forms::Control& entry) {
  const auto place = view.menus().placeOf(entry);
  if (!place || !isEnabled(view, entry)) return false;
  const auto point = pointOf(*place);
  if (point) clickOnScreen(*point);
  return point.has_value();
}

}  // namespace kvrnstep::windows
