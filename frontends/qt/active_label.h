#pragma once

#include <QLabel>
#include <functional>

#include "mouse_releases.h"

namespace kvrnstep::qt {

/// A text or a picture that the keyboard can come to. Without `onActivated` it is a plain label.
class ActiveLabel : public MouseReleases<QLabel> {
 public:
  using MouseReleases<QLabel>::MouseReleases;

  /// What a screen reader presses, and the text's mnemonic.
  std::function<void()> onActivated;
  /// A text in which "&" marks the letter that activates the label.
  void showText(const QString& text);
  [[nodiscard]] bool hasPicture() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int shortcut_ = 0;
};

/// Has screen readers told of active labels as of links and buttons that they can press.
void announceActiveLabels();

}  // namespace kvrnstep::qt
