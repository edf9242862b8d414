#include "command_keys.h"

#include <array>
#include <utility>

namespace kvrnstep::windows {

using forms::CommandKey;

namespace {

bool isHeld(int key) {
  return ::GetKeyState(key) < 0;
}

constexpr auto kWithoutModifiers = std::to_array<std::pair<WPARAM, CommandKey>>({
    {VK_RETURN, CommandKey::Enter},
    {VK_ESCAPE, CommandKey::Escape},
    {VK_SPACE, CommandKey::Space},
    {VK_UP, CommandKey::Up},
    {VK_DOWN, CommandKey::Down},
    {VK_F4, CommandKey::Ask},
    {VK_APPS, CommandKey::Menu},
});

}  // namespace

std::optional<CommandKey> commandKeyOf(const MSG& message) {
  const WPARAM key = message.wParam;
  const bool shift = isHeld(VK_SHIFT);
  const bool alt = isHeld(VK_MENU);
  if (isHeld(VK_CONTROL)) return std::nullopt;
  if (message.message == WM_KEYDOWN && !shift && !alt)
    return forms::commandIn(kWithoutModifiers, key);
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
