#pragma once

#include <QLabel>

#include "mouse_releases.h"

namespace kvrnstep::qt {

class WindowView;

/// A text or a picture. If it reacts to clicks or can be dragged, it can have the keyboard, and
/// screen readers are told that it is a link or a button that they can press.
///
/// A drag begins with the press of the left button and ends with its release. It never leaves the
/// window, so no other program is told of it.
class ActiveLabel : public MouseReleases<QLabel> {
 public:
  ActiveLabel(WindowView& window, forms::Control& control);
  ~ActiveLabel() override;
  ActiveLabel(const ActiveLabel&) = delete;
  ActiveLabel& operator=(const ActiveLabel&) = delete;

  /// "&" marks the letter of the mnemonic.
  void showText(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void paintGround(QPainter& painter, QPalette& colors) const;
  bool endDrag();

  WindowView& window_;
  const bool active_;
  bool dragged_ = false;
};

/// A plain ground for controls. Screen readers are told that it is a group.
QWidget* makeGroup(QWidget* parent);

/// Tells Qt what to say to screen readers about active labels and groups.
void announceLabelsAndGroups();

}  // namespace kvrnstep::qt
