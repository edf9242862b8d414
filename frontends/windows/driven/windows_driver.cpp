#include "windows_driver.h"

#include "user_input.h"

namespace kvrnstep::windows {

using driving::Gesture;
using forms::Kind;
using forms::MouseButton;
using What = Gesture::What;

namespace {

constexpr int kFileName = 0x0480;       // of a file box's own line
constexpr int kFileNameCombo = 0x047C;  // … and of the one with a list

POINT middleOf(const RECT& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

/// A menu is open only while the thread is in a menu's loop.
bool menuIsOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != FALSE &&
         (info.flags & GUI_INMENUMODE) != 0;
}

/// The middle of a line of a menu, on the screen; nothing while it is not shown.
std::optional<POINT> pointOf(HWND window, const MenuPlace& place) {
  RECT line{};
  const auto position = static_cast<UINT>(place.position);
  if (::GetMenuItemRect(window, place.menu, position, &line) == FALSE || line.right <= line.left) {
    return std::nullopt;
  }
  return middleOf(line);
}

/// The middle of an entry, which is scrolled to.
POINT pointOf(HWND list, int entry) {
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
  return middleOf(place());
}

HWND lineOf(HWND box) {
  const HWND line = ::GetDlgItem(box, kFileName);
  if (line != nullptr) return line;
  const HWND combo = ::GetDlgItem(box, kFileNameCombo);
  const HWND inner =
      combo != nullptr ? ::FindWindowExW(combo, nullptr, L"ComboBox", nullptr) : nullptr;
  const HWND holder = inner != nullptr ? inner : combo != nullptr ? combo : box;
  return ::FindWindowExW(holder, nullptr, L"Edit", nullptr);
}

void giveKeyboard(HWND window) {
  if (::GetForegroundWindow() != window) ::SetForegroundWindow(window);
}

}  // namespace

void WindowsDriver::callAct(bool on) {
  if (on) {
    ticker_.emplace([this] { act(); });
  } else {
    ticker_.reset();
  }
}

void WindowsDriver::settle() {
  while (native_.dealWithOne()) {
  }
}

bool WindowsDriver::waits(const forms::Window& window) {
  const WindowView* view = WindowView::of(window);
  if (view == nullptr || !view->open()) return false;
  // What has been drawn is on the screen before anybody looks at it.
  ::UpdateWindow(view->handle());
  return true;
}

void WindowsDriver::bringToFront(const forms::Window& window) {
  giveKeyboard(WindowView::of(window)->handle());
}

std::optional<WindowsDriver::Spot> WindowsDriver::spotOf(const forms::Control& control, Part part,
                                                         int entry) {
  if (control.kind() == Kind::Menu) return spotOfEntry(control);
  const ControlView& view = viewOf(control);
  HWND widget = part == Part::Whole ? view.keyTarget() : view.handle();
  auto point = reachablePoint(widget);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (control.kind() == Kind::ComboBox) ::GetComboBoxInfo(widget, &parts);
  RECT inside{};
  ::GetClientRect(widget, &inside);
  const LONG quarter = inside.bottom / 4;
  switch (part) {
    case Part::Whole:
      break;
    case Part::DropDown:
      point = middleOf(parts.rcButton);
      break;
    case Part::UpArrow:
      point = POINT{inside.right / 2, quarter};
      break;
    case Part::DownArrow:
      point = POINT{inside.right / 2, inside.bottom - quarter};
      break;
    case Part::Entry:
      if (parts.hwndList != nullptr) widget = parts.hwndList;
      point = pointOf(widget, entry);
  }
  if (!point) return std::nullopt;
  return Spot{widget, point->x, point->y};
}

std::optional<WindowsDriver::Spot> WindowsDriver::spotOfEntry(const forms::Control& entry) {
  const WindowView& view = *WindowView::of(entry.window());
  const auto place = view.menus().placeOf(entry);
  const bool inBar = entry.container() == nullptr;
  if (!place || (!inBar && !menuIsOpen())) return std::nullopt;
  const auto point = pointOf(inBar ? view.handle() : nullptr, *place);
  if (!point) return std::nullopt;
  return Spot{nullptr, point->x, point->y};
}

bool WindowsDriver::clickAt(const Spot& spot, MouseButton button, bool twice) {
  const POINT point{spot.x, spot.y};
  if (spot.widget != nullptr) {
    return windows::clickAt(static_cast<HWND>(spot.widget), point, button, twice);
  }
  moveMouse(point);
  useMouse(MOUSEEVENTF_LEFTDOWN);
  useMouse(MOUSEEVENTF_LEFTUP);
  return true;
}

bool WindowsDriver::drag(const Spot& from, const Spot& to) {
  auto* const source = static_cast<HWND>(from.widget);
  auto* const target = static_cast<HWND>(to.widget);
  POINT start{from.x, from.y};
  POINT end{to.x, to.y};
  ::ClientToScreen(source, &start);
  ::ClientToScreen(target, &end);
  if (!meets(source, start) || !meets(target, end)) return false;
  moveMouse(start);
  useMouse(MOUSEEVENTF_LEFTDOWN);
  // What is dragged holds the mouse from the press to the release.
  if (!waitForCapture(source, true)) return false;
  for (const POINT& point : {POINT{(start.x + end.x) / 2, (start.y + end.y) / 2}, end}) {
    moveMouse(point);
    settle();
  }
  useMouse(MOUSEEVENTF_LEFTUP);
  return waitForCapture(source, false);
}

bool WindowsDriver::waitForCapture(HWND widget, bool held) {
  constexpr DWORD kPatience = 5000;  // milliseconds
  constexpr DWORD kAllButTimers = QS_ALLINPUT & ~QS_TIMER;
  for (settle(); (::GetCapture() == widget) != held; settle()) {
    const DWORD came = ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPatience, kAllButTimers);
    if (came == WAIT_TIMEOUT) return false;
  }
  return true;
}

void WindowsDriver::strike(std::u16string_view character) {
  for (const char16_t unit : character) pressCharacter(unit);
}

void WindowsDriver::move(const forms::Window& window, forms::PixelPoint place) {
  ::SetWindowPos(WindowView::of(window)->handle(), nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
}

void WindowsDriver::resize(const forms::Window& window, forms::PixelSize inner) {
  const HWND handle = WindowView::of(window)->handle();
  RECT outside{};
  RECT inside{};
  ::GetWindowRect(handle, &outside);
  ::GetClientRect(handle, &inside);
  ::SetWindowPos(handle, nullptr, 0, 0, inner.width + outside.right - outside.left - inside.right,
                 inner.height + outside.bottom - outside.top - inside.bottom,
                 SWP_NOMOVE | SWP_NOZORDER);
}

void WindowsDriver::useFrame(const forms::Window& window, What what) {
  const WPARAM command = what == What::Minimize  ? SC_MINIMIZE
                         : what == What::Restore ? SC_RESTORE
                                                 : SC_CLOSE;
  ::PostMessageW(WindowView::of(window)->handle(), WM_SYSCOMMAND, command, 0);
  settle();
}

void* WindowsDriver::openBox() {
  const auto waits = [](HWND box) {
    return ::GetWindowThreadProcessId(box, nullptr) == ::GetCurrentThreadId() &&
           ::IsWindowVisible(box) != FALSE && ::IsWindowEnabled(box) != FALSE;
  };
  HWND box = nullptr;
  do {
    box = ::FindWindowExW(nullptr, box, L"#32770", nullptr);
  } while (box != nullptr && !waits(box));
  if (box != nullptr) giveKeyboard(box);
  return box;
}

void WindowsDriver::enterLine(void* box) {
  clickOn(lineOf(static_cast<HWND>(box)));
  pressKey(VK_HOME);
  pressKey(VK_END, VK_SHIFT);
}

void WindowsDriver::agree(void* box) {
  auto* const dialog = static_cast<HWND>(box);
  HWND button = ::GetDlgItem(dialog, IDYES);
  while (button == nullptr || ::IsWindowVisible(button) == FALSE) {
    button = ::FindWindowExW(dialog, button, L"Button", nullptr);
    if (button == nullptr) return;
  }
  clickOn(button);
}

}  // namespace kvrnstep::windows
