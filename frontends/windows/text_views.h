#pragma once

#include "control_view.h"
#include "edit.h"

namespace kvrnstep::windows {

/// A box of one or several lines of text.
class TextBoxView : public ControlView {
 public:
  TextBoxView(WindowView& window, forms::TextBox& box);

 protected:
  void commanded(int notification) override;
  HBRUSH colored(HDC context) override;
  void setFont(const std::u16string& font, float points) override;
  void recolor() override;
  [[nodiscard]] forms::TextSync* text() override { return &edit_; }

 private:
  [[nodiscard]] forms::TextBox& box() const { return static_cast<forms::TextBox&>(control()); }

  Edit edit_;
  Brush ground_;
};

}  // namespace kvrnstep::windows
