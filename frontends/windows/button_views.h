#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// A push button, a check box or an option button.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control);

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
  void commanded(int notification) override;
  void setMark(forms::Mark mark) override;
  void setPicture(forms::Picture picture) override;

 private:
  Icon picture_;
};

}  // namespace kvrnstep::windows
