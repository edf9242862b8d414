#pragma once

#include <QLineEdit>
#include <optional>

#include "typing.h"

namespace kvrnstep::qt {

/// One line of text, alone or in a combo box.
class LineEdit : public Typing<QLineEdit> {
 public:
  LineEdit(forms::TextControl& box, QWidget* parent);

  [[nodiscard]] std::u16string shownText() const override;
  void setSelection(forms::TextSelection selection) override;

 protected:
  [[nodiscard]] forms::TextSelection selectionIn(const std::u16string& text) const override;
  void setText(const std::u16string& text) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void edited();
  /// The user types no more than the control allows; a longer text from the program stays whole.
  void limitLength(qsizetype present);

  /// The control's selection while another widget has the focus, because the widget has none then.
  std::optional<forms::TextSelection> kept_;
};

}  // namespace kvrnstep::qt
