#pragma once

#include "control_view.h"

namespace kvrnstep::qt {

/// A text box of one or several lines.
class TextBoxView : public ControlView {
 public:
  TextBoxView(WindowView& window, forms::TextBox& box);

 protected:
  void setFont(const std::u16string& font, float points) override;
  void recolor() override;
};

}  // namespace kvrnstep::qt
