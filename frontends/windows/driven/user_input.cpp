#include "user_input.h"

#include <cstdlib>
#include <vector>

namespace kvrnstep::windows {

using forms::MouseButton;

namespace {

constexpr DWORD kKeyUp = KEYEVENTF_KEYUP;

void send(std::vector<INPUT> inputs) {
  ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

INPUT mouse(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  return input;
}

INPUT key(WORD code, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

/// A character that the keyboard has no key for.
INPUT character(char16_t code, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = static_cast<WORD>(code);
  input.ki.dwFlags = flags | KEYEVENTF_UNICODE;
  return input;
}

/// The window, or a part of it, is what a click at this point of the screen meets.
bool meets(HWND window, POINT onScreen) {
  const HWND hit = ::WindowFromPoint(onScreen);
  return hit == window || ::IsChild(window, hit) != FALSE;
}

/// Far enough from the click before it not to make a double click with it.
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
  std::vector<INPUT> inputs{mouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN),
                            mouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP)};
  if (twice) inputs.insert(inputs.end(), {inputs[0], inputs[1]});
  send(std::move(inputs));
  return true;
}

std::optional<POINT> reachablePoint(HWND window) {
  RECT room{};
  ::GetClientRect(window, &room);
  // What of it lies inside its parents can be seen.
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

void moveMouse(POINT onScreen) {
  ::SetCursorPos(onScreen.x, onScreen.y);
}

void pressLeft() {
  send({mouse(MOUSEEVENTF_LEFTDOWN)});
}

void releaseLeft() {
  send({mouse(MOUSEEVENTF_LEFTUP)});
}

void pressKey(WORD code, WORD held) {
  std::vector<INPUT> inputs{key(code, 0), key(code, kKeyUp)};
  if (held != 0) {
    inputs.insert(inputs.begin(), key(held, 0));
    inputs.push_back(key(held, kKeyUp));
  }
  send(std::move(inputs));
}

void pressCharacter(char16_t code) {
  if (const WORD named = namedKey(code); named != 0) {
    pressKey(named);
  } else if (code < u' ') {
    pressKey(static_cast<WORD>(code + u'@'), VK_CONTROL);
  } else if (code >= u'0' && code <= u'9') {
    pressKey(static_cast<WORD>(code));
  } else {
    send({character(code, 0), character(code, kKeyUp)});
  }
}

}  // namespace kvrnstep::windows
