#pragma once

#include <QPlainTextEdit>

#include "sharp_frame.h"
#include "typing.h"

namespace kvrnstep::qt {

/// Several lines of text. All that happens to them by the user's doing is passed on.
class TextEdit : public SharpFrame<Typing<QPlainTextEdit>> {
 public:
  TextEdit(forms::TextBox& box, QWidget* parent);

  /// Takes over the control's text and caret.
  void showText();
  void showSelection();
  /// As the control holds it.
  [[nodiscard]] std::u16string shownText() const;
  /// In the control's text.
  [[nodiscard]] forms::TextSelection selection() const;
  void select(forms::TextSelection selection);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void edited();
  void selected();
  [[nodiscard]] QString lines() const;
  [[nodiscard]] bool showsText() const;
  /// Characters that the user may still add.
  [[nodiscard]] qsizetype room() const;

  forms::TextBox& box_;
  bool showing_ = false;
};

}  // namespace kvrnstep::qt
