#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <functional>
#include <utility>

#include "forms/user_actions.h"

namespace kvrnstep::qt {

/// Whether the pressed key may reach the box: asks the control's handler, where it has one, about
/// each character that the key types.
bool mayType(forms::TextControl& box, const QKeyEvent& event);
/// … about each character that dead keys or an input method have put together.
bool mayType(forms::TextControl& box, const QString& characters);
/// Tells of a key for a text that came without one: the input method has taken the presses.
void releaseComposed(QWidget& widget, forms::TextControl& box);

/// A text widget whose keys are asked about.
template <class Base>
class Typing : public Base {
 public:
  using Base::Base;

  std::function<bool(const QKeyEvent&)> onPressed;
  std::function<bool(const QString&)> onComposed;
  std::function<void()> onTaken;
  std::function<bool(forms::Way)> onEntered;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    Base::focusInEvent(event);
    enteredByClick_ = event->reason() == Qt::MouseFocusReason;
    if (onEntered && isByKey(*event)) onEntered(forms::Way::Tab);
  }
  void mousePressEvent(QMouseEvent* event) override {
    const bool dealtWith =
        std::exchange(enteredByClick_, false) && onEntered && onEntered(forms::Way::Click);
    if (!dealtWith) Base::mousePressEvent(event);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (onPressed && !onPressed(*event)) {
      event->accept();
    } else {
      Base::keyPressEvent(event);
    }
  }
  void inputMethodEvent(QInputMethodEvent* event) override {
    // An empty one ends the composition.
    QInputMethodEvent nothing;
    const bool refused = onComposed && !onComposed(event->commitString());
    Base::inputMethodEvent(refused ? &nothing : event);
    if (!refused && onTaken && !event->commitString().isEmpty()) onTaken();
  }

 private:
  static bool isByKey(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason;
  }

  bool enteredByClick_ = false;
};

/// Lets the widget ask and tell the control.
template <class Base>
void connectKeys(Typing<Base>& widget, forms::TextControl& box) {
  widget.onPressed = [&box](const QKeyEvent& event) { return mayType(box, event); };
  widget.onComposed = [&box](const QString& characters) { return mayType(box, characters); };
  widget.onEntered = [&box](forms::Way way) { return forms::userEntered(box, way); };
  widget.onTaken = [&widget, &box] { releaseComposed(widget, box); };
}

}  // namespace kvrnstep::qt
