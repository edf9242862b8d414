#include "command_keys.h"

#include <array>
#include <utility>

namespace kvrnstep::qt {

using forms::CommandKey;

namespace {

constexpr auto kWithoutModifiers = std::to_array<std::pair<int, CommandKey>>({
    {Qt::Key_Return, CommandKey::Enter},
    {Qt::Key_Enter, CommandKey::Enter},
    {Qt::Key_Escape, CommandKey::Escape},
    {Qt::Key_Space, CommandKey::Space},
    {Qt::Key_Up, CommandKey::Up},
    {Qt::Key_Down, CommandKey::Down},
    {Qt::Key_F4, CommandKey::Ask},
    {Qt::Key_Menu, CommandKey::Menu},
});

}  // namespace

std::optional<CommandKey> commandKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool arrow = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
  if (modifiers == Qt::NoModifier) return forms::commandIn(kWithoutModifiers, event.key());
  if (modifiers == Qt::AltModifier && arrow) return CommandKey::Ask;
  if (modifiers == Qt::ShiftModifier && event.key() == Qt::Key_F10) return CommandKey::Menu;
  return std::nullopt;
}

forms::KeyCode codeOf(const QKeyEvent& event) {
  // Events that a program sends have no code of the keyboard.
  const forms::KeyCode code = event.nativeScanCode();
  return code != 0 ? code : static_cast<forms::KeyCode>(event.key());
}

}  // namespace kvrnstep::qt
