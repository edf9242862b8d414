#pragma once

#include <QLineEdit>
#include <optional>

#include "typing.h"

namespace kvrnstep::qt {

/// One line of text, alone or in a combo box. All that happens to it by the user's doing is
/// passed on.
class LineEdit : public Typing<QLineEdit> {
 public:
  LineEdit(forms::TextControl& box, QWidget* parent);

  /// Takes over the control's text and caret.
  void showText();
  void showSelection();
  [[nodiscard]] forms::TextSelection selection() const;
  void select(forms::TextSelection selection);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void edited();
  void selected();
  /// The user types no more than the control allows; a longer text from the program stays whole.
  void limitLength(qsizetype present);

  forms::TextControl& box_;
  /// Set while another widget has the focus: the widget forgets its mark then, the control keeps
  /// it.
  std::optional<forms::TextSelection> kept_;
  bool showing_ = false;
};

}  // namespace kvrnstep::qt
