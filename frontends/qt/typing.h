#pragma once

#include <QKeyEvent>
#include <functional>

#include "forms/user_actions.h"

namespace kvrnstep::qt {

/// Whether the pressed key may reach the box: asks the control's handler, where it has one, about
/// each character that the key types.
bool mayType(forms::TextControl& box, const QKeyEvent& event);

/// A text widget whose keys are asked about and whose released keys are told of.
template <class Base>
class Typing : public Base {
 public:
  using Base::Base;

  std::function<bool(const QKeyEvent&)> onPressed;
  std::function<void()> onReleased;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (onPressed && !onPressed(*event)) {
      event->accept();
    } else {
      Base::keyPressEvent(event);
    }
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    Base::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && onReleased) onReleased();
  }
};

/// Lets the widget ask and tell the control.
template <class Base>
void connectKeys(Typing<Base>& widget, forms::TextControl& box) {
  widget.onPressed = [&box](const QKeyEvent& event) { return mayType(box, event); };
  widget.onReleased = [&box] { forms::userReleasedKey(box); };
}

}  // namespace kvrnstep::qt
