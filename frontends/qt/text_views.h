#pragma once

#include "control_view.h"
#include "line_edit.h"
#include "text_edit.h"

namespace kvrnstep::qt {

/// A text box: font and colours; the text itself is drawn by one of the two below.
class TextBoxView : public ControlView {
 public:
  using ControlView::ControlView;

 protected:
  void apply(const Changes& changes) override;
  [[nodiscard]] forms::TextBox& box() const { return static_cast<forms::TextBox&>(control()); }

 private:
  void applyColors();
};

class SingleLineView : public TextBoxView {
 public:
  SingleLineView(WindowView& window, forms::TextBox& box);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;

 private:
  LineEdit* edit_;
};

class MultiLineView : public TextBoxView {
 public:
  MultiLineView(WindowView& window, forms::TextBox& box);

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;

 private:
  TextEdit* edit_;
};

/// What a line of text shows of a property; nothing for other properties.
std::optional<forms::PropertyValue> shownOfLine(const LineEdit& edit, forms::Property property);

}  // namespace kvrnstep::qt
