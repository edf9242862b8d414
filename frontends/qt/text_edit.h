#pragma once

#include <QPlainTextEdit>

#include "typing.h"

namespace kvrnstep::qt {

/// Several lines of text, of any length.
class TextEdit : public Typing<QPlainTextEdit> {
 public:
  TextEdit(forms::TextBox& box, QWidget* parent);

  [[nodiscard]] std::u16string shownText() const override;
  void setSelection(forms::TextSelection selection) override;

 protected:
  [[nodiscard]] bool showsText() const override;
  [[nodiscard]] std::u16string editedText() const override;
  [[nodiscard]] forms::TextSelection selectionIn(const std::u16string& text) const override;
  void setText(const std::u16string& text) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  [[nodiscard]] QString lines() const;
};

}  // namespace kvrnstep::qt
