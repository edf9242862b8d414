#pragma once

#include <QAbstractButton>

#include "control_view.h"

namespace kvrnstep::qt {

/// Push buttons, check boxes and option buttons: a caption that is never cut, and a click.
class ButtonView : public ControlView {
 public:
  ButtonView(WindowView& window, forms::Control& control, QAbstractButton* button);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  /// Pixels that the caption may take in its line.
  [[nodiscard]] virtual int captionWidth() const;
  [[nodiscard]] QAbstractButton& button() const { return *button_; }

 private:
  void clicked();

  QAbstractButton* button_;
};

class PushButtonView : public ButtonView {
 public:
  PushButtonView(WindowView& window, forms::Control& control);

 protected:
  void apply(const Changes& changes) override;
  /// A button ends inside its container, or one of its borders would be cut off.
  [[nodiscard]] QRect place() const override;
};

class CheckBoxView : public ButtonView {
 public:
  CheckBoxView(WindowView& window, forms::CheckBox& box);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] int captionWidth() const override;
};

class OptionButtonView : public ButtonView {
 public:
  OptionButtonView(WindowView& window, forms::OptionButton& button);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] int captionWidth() const override;
};

}  // namespace kvrnstep::qt
