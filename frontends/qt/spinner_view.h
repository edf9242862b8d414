#pragma once

#include <QAbstractButton>

#include "control_view.h"

namespace kvrnstep::qt {

/// Two arrow buttons, one above the other, beside the box that shows the value.
class SpinnerView : public ControlView {
 public:
  SpinnerView(WindowView& window, forms::Spinner& spinner);

  [[nodiscard]] QAbstractButton& arrow(bool up) const { return up ? *up_ : *down_; }

 protected:
  void setPlace(const forms::PixelRect& place) override;

 private:
  QAbstractButton* up_;
  QAbstractButton* down_;
};

}  // namespace kvrnstep::qt
