#include "command_keys.h"

namespace kvrnstep::qt {

using forms::CommandKey;

namespace {

std::optional<CommandKey> withoutModifiers(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return CommandKey::Enter;
    case Qt::Key_Escape:
      return CommandKey::Escape;
    case Qt::Key_Space:
      return CommandKey::Space;
    case Qt::Key_Up:
      return CommandKey::Up;
    case Qt::Key_Down:
      return CommandKey::Down;
    case Qt::Key_F4:
      return CommandKey::Ask;
    case Qt::Key_Menu:
      return CommandKey::Menu;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<CommandKey> commandKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool arrow = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
  if (modifiers == Qt::NoModifier) return withoutModifiers(event.key());
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
