#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "forms/control_sync.h"
#include "forms/guard.h"
#include "forms/user_actions.h"

namespace kvrnstep::qt {

/// The widget of a control that holds a text. It asks the control about each character that is
/// typed, and tells it of the focus.
template <class Base>
class Typing : public Base, public forms::TextSync {
 public:
  Typing(forms::TextControl& box, QWidget* parent) : Base(parent), TextSync(box) {
    this->connect(this, &Base::cursorPositionChanged, this, [this] { userMovedCaret(); });
    this->connect(this, &Base::selectionChanged, this, [this] { userMovedCaret(); });
  }

 protected:
  bool event(QEvent* event) override {
    return forms::guarded([&] { return Base::event(event); });
  }
  void focusInEvent(QFocusEvent* event) override {
    Base::focusInEvent(event);
    enteredByClick_ = event->reason() == Qt::MouseFocusReason;
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
      forms::userEntered(box(), forms::Way::Tab);
    }
  }
  void mousePressEvent(QMouseEvent* event) override {
    const bool dealtWith =
        std::exchange(enteredByClick_, false) && forms::userEntered(box(), forms::Way::Click);
    if (!dealtWith) Base::mousePressEvent(event);
  }
  void keyPressEvent(QKeyEvent* event) override {
    // Qt gives the Delete key a character; it types none.
    if (event->key() == Qt::Key_Delete || mayType(event->text())) {
      Base::keyPressEvent(event);
    } else {
      event->accept();
    }
  }
  void inputMethodEvent(QInputMethodEvent* event) override {
    // An empty event ends the composition.
    QInputMethodEvent nothing;
    const bool allowed = mayType(event->commitString());
    Base::inputMethodEvent(allowed ? event : &nothing);
    if (!allowed || event->commitString().isEmpty()) return;
    // The input method has taken the keys, so a key is simulated for the text. Later, because the
    // input method must have finished before anything else opens.
    constexpr forms::KeyCode kNoKey = 0;
    const auto strikeKey = [&box = box()] {
      forms::userPressedKey(box, kNoKey);
      forms::userReleasedKey(box.window(), kNoKey);
    };
    QMetaObject::invokeMethod(this, strikeKey, Qt::QueuedConnection);
  }

 private:
  [[nodiscard]] bool mayType(const QString& characters) {
    return std::ranges::all_of(
        characters, [this](QChar typed) { return forms::userTypes(box(), typed.unicode()); });
  }

  bool enteredByClick_ = false;
};

}  // namespace kvrnstep::qt
