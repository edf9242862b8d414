#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// Two arrows beside the box that shows the value.
class SpinnerView : public ControlView {
 public:
  SpinnerView(WindowView& window, forms::Spinner& spinner);

  std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer) override;
  /// The up and down keys in that box turn the spinner, too.
  void setBuddy(forms::ControlSync& box) override;
};

}  // namespace kvrnstep::windows
