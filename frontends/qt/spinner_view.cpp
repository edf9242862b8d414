#include "spinner_view.h"

#include <QPainter>
#include <QStyleOption>

#include "forms/keyboard.h"
#include "looks.h"
#include "mouse_releases.h"
#include "shapes.h"
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
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(toQt(forms::accessibleArrowName(spinner, up)));
    // The value changes with the press, and again with each repeat.
    connect(this, &QAbstractButton::pressed, this,
            [&spinner, up] { forms::userSpun(spinner, up); });
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_Sunken, isDown());
    window()->style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
    drawArrowHead(painter, rect(), up_, option.palette.color(QPalette::ButtonText));
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
