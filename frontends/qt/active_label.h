#pragma once

#include <QAccessible>
#include <QLabel>
#include <functional>

#include "mouse_releases.h"

namespace kvrnstep::qt {

/// A text or a picture; once it can be activated, the keyboard can come to it.
class ActiveLabel : public MouseReleases<QLabel> {
 public:
  using MouseReleases<QLabel>::MouseReleases;

  /// What happens when a screen reader presses the label, which calls it by that role, and when
  /// the text's mnemonic is pressed.
  void activateBy(std::function<void()> action, QAccessible::Role role);
  [[nodiscard]] bool canBeActivated() const { return bool(action_); }
  void activate() { action_(); }
  [[nodiscard]] QAccessible::Role role() const { return role_; }
  /// A text in which "&" marks the letter that activates the label.
  void showText(const QString& text);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void paintPicture(QPainter& painter);
  void paintFocus(QPainter& painter) const;

  std::function<void()> action_;
  QAccessible::Role role_ = QAccessible::StaticText;
  int shortcut_ = 0;
};

/// Has screen readers told of active labels as of links and buttons that they can press.
void announceActiveLabels();

}  // namespace kvrnstep::qt
