#pragma once

#include <QFocusFrame>

namespace kvrnstep::qt {

/// Shows which control of a window has the keyboard, for all kinds of controls. Screen readers do
/// not see the ring.
class FocusRing : public QFocusFrame {
 public:
  explicit FocusRing(QWidget& window);

 private:
  void follow(QWidget* focus);
};

}  // namespace kvrnstep::qt
