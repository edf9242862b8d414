#pragma once

#include "active_label.h"

namespace kvrnstep::qt {

/// A label that may be dragged: from the press of the left button to its release the mouse carries
/// it about. What is dragged never leaves the window, so no other program is told of it.
class DragLabel : public ActiveLabel {
 public:
  explicit DragLabel(QWidget* parent) : ActiveLabel(parent) {}
  ~DragLabel() override;
  DragLabel(const DragLabel&) = delete;
  DragLabel& operator=(const DragLabel&) = delete;

  /// Lets drags begin, with the mouse cursor of that resource while they last; 0 is the usual one.
  void setDraggable(int cursor);
  /// Where on the screen the label was dropped.
  std::function<void(QPoint)> onDropped;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void endDrag();

  int dragCursor_ = 0;
  bool draggable_ = false;
  bool dragged_ = false;
};

}  // namespace kvrnstep::qt
