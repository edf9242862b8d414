#pragma once

#include "control_view.h"
#include "forms/control_sync.h"

namespace kvrnstep::qt {

/// A text box of one or several lines.
class TextBoxView : public ControlView {
 public:
  TextBoxView(WindowView& window, forms::TextBox& box);

 protected:
  void setFont(const std::u16string& font, float points) override;
  void recolor() override;
  [[nodiscard]] forms::TextSync* text() override { return text_; }

 private:
  template <class Edit>
  void use(Edit* edit);

  forms::TextSync* text_ = nullptr;
};

}  // namespace kvrnstep::qt
