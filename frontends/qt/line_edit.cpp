#include "line_edit.h"

#include <algorithm>
#include <utility>

#include "text.h"

namespace kvrnstep::qt {

LineEdit::LineEdit(forms::TextControl& box, QWidget* parent)
    : Typing<QLineEdit>(parent), box_(box) {
  connectKeys(*this, box);
  setReadOnly(box.row().readOnly);
  setAcceptDrops(!box.onDragDrop);
  connect(this, &QLineEdit::textEdited, this, [this] { edited(); });
  connect(this, &QLineEdit::cursorPositionChanged, this, [this] { selected(); });
  connect(this, &QLineEdit::selectionChanged, this, [this] { selected(); });
}

forms::TextSelection LineEdit::selection() const {
  if (kept_) return *kept_;
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  return {static_cast<std::size_t>(start), static_cast<std::size_t>(selectionLength())};
}

void LineEdit::edited() {
  if (showing_) return;
  kept_.reset();
  limitLength(text().size());
  forms::userEdited(box_, fromQt(text()), selection());
}

void LineEdit::selected() {
  // While a text is being replaced the caret is told of with the text.
  if (showing_ || fromQt(text()) != box_.text()) return;
  forms::userSelected(box_, selection());
}

void LineEdit::limitLength(qsizetype present) {
  constexpr int kUnlimited = 32767;
  const int limit = box_.row().maxLength > 0 ? box_.row().maxLength : kUnlimited;
  setMaxLength(std::max(limit, static_cast<int>(present)));
}

void LineEdit::showText() {
  const QString text = toQt(box_.text());
  if (this->text() == text) return;
  showing_ = true;
  limitLength(text.size());
  setText(text);
  showing_ = false;
}

void LineEdit::showSelection() {
  if (selection() == box_.selection()) return;
  showing_ = true;
  select(box_.selection());
  showing_ = false;
}

void LineEdit::select(forms::TextSelection selection) {
  if (kept_) {
    kept_ = selection;
    return;
  }
  deselect();
  setCursorPosition(static_cast<int>(selection.start));
  if (selection.length > 0) {
    setSelection(static_cast<int>(selection.start), static_cast<int>(selection.length));
  }
}

void LineEdit::focusInEvent(QFocusEvent* event) {
  if (const auto kept = std::exchange(kept_, std::nullopt)) {
    showing_ = true;
    select(*kept);
    showing_ = false;
  }
  Typing<QLineEdit>::focusInEvent(event);
}

void LineEdit::focusOutEvent(QFocusEvent* event) {
  kept_ = selection();
  Typing<QLineEdit>::focusOutEvent(event);
}

}  // namespace kvrnstep::qt
