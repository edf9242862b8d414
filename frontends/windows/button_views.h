#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// Push buttons, check boxes and option buttons: a caption that is never cut, and a click.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control, DWORD style);

  void commanded(int notification) override;

 protected:
  void setCaption(const std::u16string& caption) override;
  void fitCaption() override;
  void setMark(forms::Mark mark) override;
  /// Pixels beside the caption, at the nominal density.
  [[nodiscard]] virtual int beside() const = 0;
  [[nodiscard]] int shownMark() const;

 private:
  Font font_;
};

class PushButtonView : public ButtonView {
 public:
  PushButtonView(WindowView& window, forms::Control& control);

 protected:
  void setPicture(forms::Picture picture) override;
  [[nodiscard]] int beside() const override { return 8; }

 private:
  Icon picture_;
};

class CheckBoxView : public ButtonView {
 public:
  CheckBoxView(WindowView& window, forms::Control& box);

 protected:
  [[nodiscard]] int beside() const override { return 18; }
};

class OptionButtonView : public ButtonView {
 public:
  OptionButtonView(WindowView& window, forms::Control& button);

 protected:
  [[nodiscard]] int beside() const override { return 18; }
};

}  // namespace kvrnstep::windows
