#pragma once

#include <QAbstractButton>

#include "control_view.h"

namespace kvrnstep::qt {

/// Push buttons, check boxes and option buttons: a caption that is never cut, and a click.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control, QAbstractButton* button);

 protected:
  void setCaption(const std::u16string& caption) override;
  void fitCaption() override;
  /// Pixels that the caption may take in its line.
  [[nodiscard]] virtual int captionWidth() const;
  [[nodiscard]] QAbstractButton& button() const { return *button_; }

 private:
  QAbstractButton* button_;
};

class PushButtonView : public ButtonView {
 public:
  PushButtonView(WindowView& window, forms::Control& control);

 protected:
  void setPicture(forms::Picture picture) override;
};

class CheckBoxView : public ButtonView {
 public:
  CheckBoxView(WindowView& window, forms::Control& box);

 protected:
  void setMark(forms::Mark mark) override;
  [[nodiscard]] int captionWidth() const override;
};

class OptionButtonView : public ButtonView {
 public:
  OptionButtonView(WindowView& window, forms::Control& button);

 protected:
  void setMark(forms::Mark mark) override;
  [[nodiscard]] int captionWidth() const override;
};

}  // namespace kvrnstep::qt
