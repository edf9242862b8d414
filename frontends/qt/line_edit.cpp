#include "line_edit.h"

#include <algorithm>

#include "text.h"

namespace kvrnstep::qt {

LineEdit::LineEdit(forms::TextControl& box, QWidget* parent) : Typing(box, parent) {
  setReadOnly(box.row().readOnly);
  setAcceptDrops(!box.onDragDrop);
  connect(this, &QLineEdit::textEdited, this, [this] { edited(); });
}

std::u16string LineEdit::shownText() const {
  return fromQt(text());
}

forms::TextSelection LineEdit::selectionIn(const std::u16string& /*text*/) const {
  if (kept_) return *kept_;
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  return {static_cast<std::size_t>(start), static_cast<std::size_t>(selectionLength())};
}

void LineEdit::edited() {
  kept_.reset();
  limitLength(text().size());
  userChangedText();
}

void LineEdit::limitLength(qsizetype present) {
  constexpr int kUnlimited = 32767;
  const int limit = box().row().maxLength > 0 ? box().row().maxLength : kUnlimited;
  setMaxLength(std::max(limit, static_cast<int>(present)));
}

void LineEdit::setText(const std::u16string& text) {
  const QString shown = toQt(text);
  limitLength(shown.size());
  QLineEdit::setText(shown);
}

void LineEdit::setSelection(forms::TextSelection selection) {
  if (kept_) {
    kept_ = selection;
    return;
  }
  deselect();
  setCursorPosition(static_cast<int>(selection.start));
  if (selection.length > 0) {
    QLineEdit::setSelection(static_cast<int>(selection.start), static_cast<int>(selection.length));
  }
}

void LineEdit::focusInEvent(QFocusEvent* event) {
  kept_.reset();
  showSelection();
  Typing<QLineEdit>::focusInEvent(event);
}

void LineEdit::focusOutEvent(QFocusEvent* event) {
  kept_ = shownSelection();
  Typing<QLineEdit>::focusOutEvent(event);
}

}  // namespace kvrnstep::qt
