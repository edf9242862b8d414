#include "user_input.h"

#include <cstdlib>

namespace kvrnstep::windows {

using forms::MouseButton;

namespace {

void send(INPUT input) {
  ::SendInput(1, &input, sizeof input);
}

/// Presses or releases a key, or types a character that the keyboard has no key for.
void useKey(WORD code, WORD scanCode, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = scanCode;
  input.ki.dwFlags = flags;
  send(input);
}

void useKey(WORD code, DWORD flags) {
  useKey(code, static_cast<WORD>(::MapVirtualKeyW(code, MAPVK_VK_TO_VSC)), flags);
}

/// A point some pixels away from the click before it, so that the two are no double click.
POINT awayFromLast(HWND window, POINT inside) {
  static POINT last{-1000, -1000};
  constexpr int kStep = 5;
  RECT room{};
  ::GetClientRect(window, &room);
  POINT onScreen = inside;
  ::ClientToScreen(window, &onScreen);
  if (std::abs(onScreen.x - last.x) < kStep && std::abs(onScreen.y - last.y) < kStep) {
    const int step = inside.x + kStep < room.right ? kStep : -kStep;
    onScreen.x += step;
  }
  last = onScreen;
  return onScreen;
}

WORD namedKey(char16_t code) {
  switch (code) {
    case u'\b':
      return VK_BACK;
    case u'\r':
    case u'\n':
      return VK_RETURN;
    case u'\t':
      return VK_TAB;
    case 0x1B:
      return VK_ESCAPE;
    case 0x7F:
      return VK_DELETE;
    default:
      return 0;
  }
}

}  // namespace

bool clickAt(HWND window, POINT inside, MouseButton button, bool twice) {
  const POINT onScreen = awayFromLast(window, inside);
  if (::IsWindowVisible(window) == FALSE || !meets(window, onScreen)) return false;
  moveMouse(onScreen);
  const bool right = button == MouseButton::Right;
  for (int presses = twice ? 2 : 1; presses > 0; --presses) {
    useMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    useMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  }
  return true;
}

std::optional<POINT> reachablePoint(HWND window) {
  RECT room{};
  ::GetClientRect(window, &room);
  // Only what is inside of all its parents can be seen.
  for (HWND parent = ::GetParent(window); parent != nullptr; parent = ::GetParent(parent)) {
    if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0) break;
    RECT around{};
    ::GetClientRect(parent, &around);
    ::MapWindowPoints(parent, window, reinterpret_cast<POINT*>(&around), 2);
    if (::IntersectRect(&room, &room, &around) == FALSE) return std::nullopt;
    if (parent == ::GetAncestor(window, GA_ROOT)) break;
  }
  return POINT{(room.left + room.right) / 2, (room.top + room.bottom) / 2};
}

bool clickOn(HWND window) {
  const auto point = reachablePoint(window);
  return point && clickAt(window, *point);
}

bool meets(HWND window, POINT onScreen) {
  const HWND hit = ::WindowFromPoint(onScreen);
  return hit == window || ::IsChild(window, hit) != FALSE;
}

void moveMouse(POINT onScreen) {
  ::SetCursorPos(onScreen.x, onScreen.y);
}

void useMouse(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  send(input);
}

void pressKey(WORD code, WORD held) {
  if (held != 0) useKey(held, 0);
  useKey(code, 0);
  useKey(code, KEYEVENTF_KEYUP);
  if (held != 0) useKey(held, KEYEVENTF_KEYUP);
}

void pressCharacter(char16_t code) {
  if (const WORD named = namedKey(code); named != 0) {
    pressKey(named);
  } else if (code < u' ') {
    pressKey(static_cast<WORD>(code + u'@'), VK_CONTROL);
  } else if (code >= u'0' && code <= u'9') {
    pressKey(static_cast<WORD>(code));
  } else {
    useKey(0, static_cast<WORD>(code), KEYEVENTF_UNICODE);
    useKey(0, static_cast<WORD>(code), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

}  // namespace kvrnstep::windows
