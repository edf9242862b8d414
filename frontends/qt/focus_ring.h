#pragma once

#include <QFocusFrame>

namespace kvrnstep::qt {

/// Shows which control of a window has the keyboard, whatever kind it is and however it got there.
/// Screen readers hear nothing of it.
class FocusRing : public QFocusFrame {
 public:
  explicit FocusRing(QWidget& window);

 private:
  void follow(QWidget* focus);
};

}  // namespace kvrnstep::qt
