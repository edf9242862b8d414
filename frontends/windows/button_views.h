#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// Push buttons, check boxes and option buttons: a caption that is never cut, and a click.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control, DWORD style);

  [[nodiscard]] bool takesFocus() const override { return true; }
  void commanded(int notification) override;
  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  /// Pixels beside the caption, at the nominal density.
  [[nodiscard]] virtual int beside() const = 0;
  [[nodiscard]] int mark() const;
  void showMark(int mark);

 private:
  void fitFont();

  Font font_;
};

class PushButtonView : public ButtonView {
 public:
  PushButtonView(WindowView& window, forms::Control& control);

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] int beside() const override { return 8; }

 private:
  Icon picture_;
};

class CheckBoxView : public ButtonView {
 public:
  CheckBoxView(WindowView& window, forms::CheckBox& box);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] int beside() const override { return 18; }
};

class OptionButtonView : public ButtonView {
 public:
  OptionButtonView(WindowView& window, forms::OptionButton& button);

  /// Tab leads to the selected one of a group, the arrow keys to the others.
  [[nodiscard]] bool takesFocus() const override;
  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] int beside() const override { return 18; }
};

}  // namespace kvrnstep::windows
