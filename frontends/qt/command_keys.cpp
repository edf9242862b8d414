#include "command_keys.h"

#include <optional>

#include "forms/keyboard.h"
#include "forms/user_actions.h"
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

/// The same for press and release, even where Shift is let go of in between; events that a program
/// makes up have no code of the keyboard's.
forms::KeyCode codeOf(const QKeyEvent& event) {
  const forms::KeyCode code = event.nativeScanCode();
  return code != 0 ? code : static_cast<forms::KeyCode>(event.key());
}

bool leavesWindow(const QFocusEvent& event) {
  return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
         event.reason() == Qt::MenuBarFocusReason;
}

}  // namespace

bool CommandKeys::eventFilter(QObject* watched, QEvent* event) {
  if (!window_.open()) return false;
  // A widget that has no use for a key passes it on to the one that holds it.
  const bool first = watched == window_.topLevel().focusWidget();
  switch (event->type()) {
    case QEvent::KeyPress:
      return first && pressed(static_cast<QWidget&>(*watched), static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      if (first) released(static_cast<const QKeyEvent&>(*event));
      return false;
    case QEvent::FocusOut:
      if (leavesWindow(static_cast<const QFocusEvent&>(*event))) forms::userLeft(window_.window());
      return false;
    default:
      return false;
  }
}

bool CommandKeys::pressed(const QWidget& widget, const QKeyEvent& event) {
  ControlView* view = window_.viewOf(widget);
  if (view == nullptr) return false;
  if (!repeats(event)) forms::userPressedKey(view->control(), codeOf(event));
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier) {
    return window_.enterMenuBar();
  }
  const auto key = commandKey(event);
  return key && window_.pressed(*view, *key);
}

void CommandKeys::released(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  const bool counted = forms::userReleasedKey(window_.window(), codeOf(event));
  lastReleased_ = {event.nativeScanCode(), event.timestamp(), counted};
}

bool CommandKeys::repeats(const QKeyEvent& event) const {
  if (event.isAutoRepeat()) return true;
  const Released& last = lastReleased_;
  const bool atOnce = event.timestamp() == last.time && event.nativeScanCode() == last.code;
  return atOnce && last.code != 0 && !last.counted;
}

}  // namespace kvrnstep::qt
