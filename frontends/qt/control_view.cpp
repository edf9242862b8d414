#include "control_view.h"

#include <utility>

#include "forms/keyboard.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

void ControlView::adopt(QWidget* widget) {
  widget_ = widget;
  focusPolicy_ = widget->focusPolicy();
  widget_->setObjectName(QString::fromStdString(control_.scriptName()));
  widget_->setAccessibleName(toQt(forms::accessibleName(control_)));
  widget_->installEventFilter(&window_.commandKeys());
  if (!control_.row().toolTip.empty()) widget_->setToolTip(toQt(control_.row().toolTip));
}

void ControlView::applyChanges() {
  if (!changes_.any() || applying_) return;
  applying_ = true;
  apply(std::exchange(changes_, Changes()));
  applying_ = false;
}

void ControlView::apply(const Changes& changes) {
  if (widget_ == nullptr) return;
  if (changes.has(Property::Left) || changes.has(Property::Width)) widget_->setGeometry(place());
  if (changes.has(Property::Enabled)) widget_->setEnabled(control_.enabled());
  if (changes.has(Property::Visible)) widget_->setVisible(control_.visible());
}

void ControlView::allowFocus(bool allowed) {
  // The option buttons of a group pass their turn on among themselves.
  if (control_.kind() == forms::Kind::OptionButton) return;
  widget_->setFocusPolicy(allowed ? focusPolicy_ : Qt::NoFocus);
}

QPoint ControlView::menuPlace() const {
  return widget_->mapToGlobal(widget_->rect().center());
}

QRect ControlView::place() const {
  return window_.pixelPlace(control_);
}

std::optional<forms::PropertyValue> ControlView::shown(Property property) const {
  if (widget_ == nullptr) return std::nullopt;
  switch (property) {
    case Property::Enabled:
      // isEnabled() would tell of the containers too.
      return !widget_->testAttribute(Qt::WA_ForceDisabled);
    case Property::Visible:
      return !widget_->isHidden();
    case Property::ToolTip:
      return fromQt(widget_->toolTip());
    default:
      return std::nullopt;
  }
}

}  // namespace kvrnstep::qt
