#include "command_keys.h"

#include <QKeyEvent>
#include <optional>

#include "forms/keyboard.h"
#include "window_view.h"

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

std::optional<CommandKey> commandKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool arrow = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
  if (modifiers == Qt::NoModifier) return withoutModifiers(event.key());
  if (modifiers == Qt::AltModifier && arrow) return CommandKey::Ask;
  if (modifiers == Qt::ShiftModifier && event.key() == Qt::Key_F10) return CommandKey::Menu;
  return std::nullopt;
}

}  // namespace

bool CommandKeys::eventFilter(QObject* widget, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& pressed = static_cast<const QKeyEvent&>(*event);
  if (pressed.key() == Qt::Key_F10 && pressed.modifiers() == Qt::NoModifier) {
    return window_.enterMenuBar();
  }
  ControlView* view = window_.viewOf(*static_cast<QWidget*>(widget));
  const auto key = commandKey(pressed);
  return key && view != nullptr && window_.pressed(*view, *key);
}

}  // namespace kvrnstep::qt
