#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// Two arrows, one above the other, beside the box that shows the value. They hold no value of
/// their own.
class SpinnerView : public ControlView {
 public:
  SpinnerView(WindowView& window, forms::Spinner& spinner);

  std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer) override;
  /// The box whose arrow keys turn the value too.
  void setBuddy(forms::ControlSync& box) override;
};

}  // namespace kvrnstep::windows
