#pragma once

#include <QAbstractButton>

#include "control_view.h"
#include "mouse_releases.h"

namespace kvrnstep::qt {

/// An arrow button of a spinner; it repeats while it is held down.
class ArrowButton : public MouseReleases<QAbstractButton> {
 public:
  ArrowButton(bool up, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool up_;
};

/// Two arrow buttons, one above the other, beside the box that shows the value.
class SpinnerView : public ControlView {
 public:
  SpinnerView(WindowView& window, forms::Spinner& spinner);

  [[nodiscard]] QAbstractButton& arrow(bool up) const { return up ? *up_ : *down_; }

 protected:
  void setPlace(const forms::PixelRect& place) override;

 private:
  ArrowButton* addArrow(bool up);

  QWidget* ground_;
  ArrowButton* up_;
  ArrowButton* down_;
};

}  // namespace kvrnstep::qt
