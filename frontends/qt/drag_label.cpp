#include "drag_label.h"

#include <QGuiApplication>
#include <utility>

#include "artwork.h"

namespace kvrnstep::qt {

DragLabel::~DragLabel() {
  endDrag();
}

void DragLabel::setDraggable(int cursor) {
  draggable_ = true;
  dragCursor_ = cursor;
}

void DragLabel::mousePressEvent(QMouseEvent* event) {
  ActiveLabel::mousePressEvent(event);
  if (!draggable_ || dragged_ || event->button() != Qt::LeftButton) return;
  dragged_ = true;
  QGuiApplication::setOverrideCursor(cursorOf(dragCursor_, devicePixelRatioF()));
}

void DragLabel::mouseReleaseEvent(QMouseEvent* event) {
  ActiveLabel::mouseReleaseEvent(event);
  if (!dragged_ || event->button() != Qt::LeftButton) return;
  endDrag();
  if (onDropped) onDropped(event->globalPosition().toPoint());
}

void DragLabel::hideEvent(QHideEvent* event) {
  endDrag();
  ActiveLabel::hideEvent(event);
}

void DragLabel::endDrag() {
  if (std::exchange(dragged_, false)) QGuiApplication::restoreOverrideCursor();
}

}  // namespace kvrnstep::qt
