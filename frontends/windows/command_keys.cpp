#include "command_keys.h"

namespace kvrnstep::windows {

using forms::CommandKey;

namespace {

bool isHeld(int key) {
  return ::GetKeyState(key) < 0;
}

std::optional<CommandKey> withoutModifiers(WPARAM key) {
  switch (key) {
    case VK_RETURN:
      return CommandKey::Enter;
    case VK_ESCAPE:
      return CommandKey::Escape;
    case VK_SPACE:
      return CommandKey::Space;
    case VK_UP:
      return CommandKey::Up;
    case VK_DOWN:
      return CommandKey::Down;
    case VK_F4:
      return CommandKey::Ask;
    case VK_APPS:
      return CommandKey::Menu;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<CommandKey> commandKeyOf(const MSG& message) {
  const WPARAM key = message.wParam;
  const bool shift = isHeld(VK_SHIFT);
  const bool alt = isHeld(VK_MENU);
  if (isHeld(VK_CONTROL)) return std::nullopt;
  if (message.message == WM_KEYDOWN && !shift && !alt) return withoutModifiers(key);
  if (message.message != WM_SYSKEYDOWN) return std::nullopt;
  if (key == VK_F10 && shift && !alt) return CommandKey::Menu;
  if ((key == VK_UP || key == VK_DOWN) && alt && !shift) return CommandKey::Ask;
  return std::nullopt;
}

char16_t letterWithAlt(const MSG& message) {
  if (message.message != WM_SYSCHAR) return 0;
  // If the function gets a character instead of a pointer, it returns the capital letter.
  const auto character = static_cast<ULONG_PTR>(static_cast<WORD>(message.wParam));
  return static_cast<char16_t>(
      reinterpret_cast<ULONG_PTR>(::CharUpperW(reinterpret_cast<LPWSTR>(character))));
}

}  // namespace kvrnstep::windows
