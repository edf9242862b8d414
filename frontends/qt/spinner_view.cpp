#include "spinner_view.h"

#include <QPainter>

#include "forms/keyboard.h"
#include "mouse_releases.h"
#include "sharp_frame.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

/// An arrow button of a spinner; it repeats while it is held down.
class ArrowButton : public MouseReleases<QAbstractButton> {
 public:
  ArrowButton(forms::Spinner& spinner, bool up, QWidget* parent)
      : MouseReleases<QAbstractButton>(spinner, parent), up_(up) {
    setAutoRepeat(true);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(toQt(forms::accessibleArrowName(spinner, up)));
    // The value changes with the press, and again with each repeat.
    connect(this, &QAbstractButton::pressed, this,
            [&spinner, up] { forms::userSpun(spinner, up); });
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
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

 private:
  bool up_;
};

}  // namespace

SpinnerView::SpinnerView(WindowView& window, forms::Spinner& spinner)
    : ControlView(window, spinner, new QWidget(window.parentFor(spinner))),
      up_(new ArrowButton(spinner, true, widget())),
      down_(new ArrowButton(spinner, false, widget())) {}

void SpinnerView::setPlace(const forms::PixelRect& place) {
  ControlView::setPlace(place);
  // They overlap, so that there is one line between them.
  const int middle = place.height / 2;
  up_->setGeometry(0, 0, place.width, middle);
  down_->setGeometry(0, middle - 1, place.width, place.height - middle + 1);
}

}  // namespace kvrnstep::qt
