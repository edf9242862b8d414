#include "gestures.h"

#include <cmath>

#include "scale.h"
#include "shortcut.h"
#include "ticker.h"
#include "user_input.h"

namespace kvrnstep::windows {

using forms::Chrome;
using forms::Kind;
using forms::kTwipsPerPixel;
using forms::MouseButton;
using forms::Property;

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

const forms::Control* entryWith(const WindowView& view, std::string_view keys) {
  for (const auto& control : view.window().controls()) {
    if (control->kind() == Kind::Menu && control->row().shortcut == keys) return control.get();
  }
  return nullptr;
}

bool isEnabled(const WindowView& view, const forms::Control& entry) {
  const auto enabled = view.menus().shown(entry, Property::Enabled);
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

}  // namespace

bool clickControl(WindowView& view, forms::Control& control, MouseButton button, bool twice,
                  std::optional<int> entry, const Settle& settle) {
  if (control.kind() == Kind::Menu) {
    return pickEntry(view, static_cast<forms::MenuEntry&>(control), settle);
  }
  const HWND handle = view.viewOf(control).keyTarget();
  const Presses presses = twice ? Presses::Twice : Presses::Once;
  const bool clicked =
      entry ? clickListEntry(handle, *entry, button, presses) : clickOn(handle, button, presses);
  settle();
  return clicked;
}

bool typeText(WindowView& view, forms::TextControl& box, std::u16string_view text,
              const Settle& settle) {
  if (!enterBox(view, box, {box.text().size(), 0}, settle)) return false;
  for (const char16_t character : text) {
    if (!view.open()) break;
    pressCharacter(character);
    settle();
  }
  return true;
}

bool clearText(WindowView& view, forms::TextControl& box, const Settle& settle) {
  if (!enterBox(view, box, {0, box.text().size()}, settle)) return false;
  pressKey(VK_DELETE);
  settle();
  return true;
}

bool selectText(WindowView& view, forms::TextControl& box, forms::TextSelection selection,
                const Settle& settle) {
  return enterBox(view, box, selection, settle);
}

bool pressShortcut(WindowView& view, std::string_view keys, const Settle& settle) {
  const forms::Control* entry = entryWith(view, keys);
  const auto shortcut = shortcutOf(keys);
  if (entry == nullptr || !shortcut || !isEnabled(view, *entry)) return false;
  ::SetForegroundWindow(view.handle());
  pressKey(shortcut->key, shortcut->control ? VK_CONTROL : 0);
  settle();
  return true;
}

bool chooseEntry(WindowView& view, forms::ComboBox& combo, int entry, const Settle& settle) {
  const HWND box = view.viewOf(combo).handle();
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (::GetComboBoxInfo(box, &parts) == FALSE || !clickAt(box, middleOf(parts.rcButton))) {
    return false;
  }
  settle();
  const bool clicked = ::IsWindowVisible(parts.hwndList) != FALSE &&
                       clickListEntry(parts.hwndList, entry, MouseButton::Left, Presses::Once);
  settle();
  return clicked;
}

bool clickArrow(WindowView& view, forms::Spinner& spinner, bool up, const Settle& settle) {
  const HWND arrows = view.viewOf(spinner).handle();
  RECT inside{};
  ::GetClientRect(arrows, &inside);
  const LONG quarter = inside.bottom / 4;
  const bool clicked = clickAt(arrows, {inside.right / 2, up ? quarter : inside.bottom - quarter});
  settle();
  return clicked;
}

bool dragOnto(WindowView& view, forms::Control& from, forms::Control& to, const Settle& settle) {
  const HWND source = view.viewOf(from).handle();
  const HWND target = view.viewOf(to).handle();
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
  settle();
  return true;
}

bool pickEntry(WindowView& view, const forms::MenuEntry& entry, const Settle& settle) {
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

bool popUpIsShown(const WindowView& view, const forms::MenuEntry& menu) {
  return pointOf({view.menus().menuOf(menu), 0}).has_value();
}

bool pickFromPopUp(const WindowView& view, const forms::MenuEntry& entry) {
  const auto place = view.menus().placeOf(entry);
  if (!place || !isEnabled(view, entry)) return false;
  const auto point = pointOf(*place);
  if (point) clickOnScreen(*point);
  return point.has_value();
}

bool moveWindow(WindowView& view, double left, double top, const Settle& settle) {
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

bool resizeWindow(WindowView& view, double width, double height, const Settle& settle) {
  if (!view.window().design().resizable) return false;
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

bool minimizeWindow(WindowView& view, bool minimized, const Settle& settle) {
  ::PostMessageW(view.handle(), WM_SYSCOMMAND, minimized ? SC_MINIMIZE : SC_RESTORE, 0);
  settle();
  return view.window().minimized() == minimized;
}

bool closeWindow(WindowView& view, const Settle& settle) {
  ::PostMessageW(view.handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
  settle();
  return true;
}

}  // namespace kvrnstep::windows
