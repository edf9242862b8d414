#include "control_view.h"

#include "forms/keyboard.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

ControlView::ControlView(WindowView& window, forms::Control& control)
    : ControlSync(window, control), window_(window) {}

void ControlView::adopt(QWidget* widget) {
  widget_ = widget;
  focusPolicy_ = widget->focusPolicy();
  widget_->setObjectName(QString::fromStdString(control().scriptName()));
  widget_->setAccessibleName(toQt(forms::accessibleName(control())));
  widget_->installEventFilter(&window_.commandKeys());
  if (!control().row().toolTip.empty()) widget_->setToolTip(toQt(control().row().toolTip));
}

void ControlView::setPlace(const forms::PixelRect& place) {
  widget_->setGeometry(place.left, place.top, place.width, place.height);
}

void ControlView::setTabStop(bool on) {
  // The option buttons of a group pass their turn on among themselves.
  if (control().kind() == forms::Kind::OptionButton) return;
  widget_->setFocusPolicy(on ? focusPolicy_ : Qt::NoFocus);
}

QPoint ControlView::menuPlace() const {
  return widget_->mapToGlobal(widget_->rect().center());
}

}  // namespace kvrnstep::qt
