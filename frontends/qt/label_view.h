#pragma once

#include "active_label.h"
#include "control_view.h"

namespace kvrnstep::qt {

/// A caption or a picture, plain or to be clicked.
class LabelView : public ControlView {
 public:
  LabelView(WindowView& window, forms::Control& control);

  void setBuddy(forms::ControlSync& buddy) override;

 protected:
  void setCaption(const std::u16string& caption) override;
  void setPicture(forms::Picture picture) override;
  void setCursor(int resourceId) override;
  void recolor() override;

 private:
  [[nodiscard]] ActiveLabel& label() const { return static_cast<ActiveLabel&>(*widget()); }
};

}  // namespace kvrnstep::qt
