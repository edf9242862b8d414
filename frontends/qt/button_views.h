#pragma once

#include <QAbstractButton>

#include "control_view.h"

namespace kvrnstep::qt {

/// A push button, a check box or an option button: a caption that is never cut, and a click.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control);

 protected:
  void setCaption(const std::u16string& caption) override;
  void setPicture(forms::Picture picture) override;
  void setMark(forms::Mark mark) override;
  [[nodiscard]] int captionWidth() const override;

 private:
  [[nodiscard]] QAbstractButton& button() const { return static_cast<QAbstractButton&>(*widget()); }
};

}  // namespace kvrnstep::qt
