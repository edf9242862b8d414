#include "spinner_view.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "sharp_frame.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

ArrowButton::ArrowButton(bool up, QWidget* parent)
    : MouseReleases<QAbstractButton>(parent), up_(up) {
  setAutoRepeat(true);
  setFocusPolicy(Qt::NoFocus);
}

void ArrowButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QPalette& colors = palette();
  painter.fillRect(rect(), colors.color(isDown() ? QPalette::Mid : QPalette::Button));
  drawSharpFrame(painter, *this);

  const QPointF middle = QRectF(rect()).center();
  const double towards = up_ ? -1 : 1;
  const QPolygonF arrow{QPointF(middle.x() - 3, middle.y() - 1.5 * towards),
                        QPointF(middle.x() + 3, middle.y() - 1.5 * towards),
                        QPointF(middle.x(), middle.y() + 1.5 * towards)};
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(
      colors.color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
  painter.drawPolygon(arrow);
}

SpinnerView::SpinnerView(WindowView& window, forms::Spinner& spinner)
    : ControlView(window, spinner),
      ground_(new QWidget(window.parentFor(spinner))),
      up_(addArrow(true)),
      down_(addArrow(false)) {
  adopt(ground_);
  for (const bool up : {true, false}) {
    arrow(up).setAccessibleName(toQt(forms::accessibleArrowName(spinner, up)));
  }
}

ArrowButton* SpinnerView::addArrow(bool up) {
  auto* arrow = new ArrowButton(up, ground_);
  // Pressed, not clicked: the value changes as the mouse goes down, and again at each repeat.
  QObject::connect(arrow, &QAbstractButton::pressed, arrow,
                   [this, up] { forms::userSpun(static_cast<forms::Spinner&>(control()), up); });
  arrow->onReleased = [this](forms::MouseButton button) {
    forms::userReleasedMouse(control(), button);
  };
  return arrow;
}

void SpinnerView::setPlace(const forms::PixelRect& place) {
  ControlView::setPlace(place);
  // One line between them, not two.
  const int middle = place.height / 2;
  up_->setGeometry(0, 0, place.width, middle);
  down_->setGeometry(0, middle - 1, place.width, place.height - middle + 1);
}

}  // namespace kvrnstep::qt
