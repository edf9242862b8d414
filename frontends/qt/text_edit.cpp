#include "text_edit.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>

#include "line_breaks.h"
#include "text.h"

namespace kvrnstep::qt {

TextEdit::TextEdit(forms::TextBox& box, QWidget* parent) : Typing(box, parent) {
  constexpr double kMargin = 4;
  constexpr double kGutter = 6;
  const forms::ControlRow& row = box.row();
  if (row.readOnly) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Nothing can be typed where a caret would be.
    setCursorWidth(0);
  }
  setTabChangesFocus(true);
  setLineWrapMode(row.horizontalScroll ? NoWrap : WidgetWidth);
  document()->setDocumentMargin(row.readOnly ? kGutter : kMargin);
  connect(this, &QPlainTextEdit::textChanged, this, [this] { userChangedText(); });
}

QString TextEdit::lines() const {
  // toPlainText() would turn each no-break space into a blank.
  QString text = document()->toRawText();
  text.replace(QChar::ParagraphSeparator, u'\n');
  return text;
}

bool TextEdit::showsText() const {
  return lines() == widgetLines(box().text());
}

std::u16string TextEdit::shownText() const {
  // Breaks of another kind than CR LF look the same.
  return showsText() ? box().text() : controlLines(lines());
}

std::u16string TextEdit::editedText() const {
  return withEdit(box().text(), lines());
}

forms::TextSelection TextEdit::selectionIn(const std::u16string& text) const {
  const QTextCursor cursor = textCursor();
  const std::size_t start = controlPlace(text, cursor.selectionStart());
  return {start, controlPlace(text, cursor.selectionEnd()) - start};
}

void TextEdit::setText(const std::u16string& text) {
  // Qt wraps a line in minutes that is as long as a step file may be, because it looks at all of it
  // for each part.
  constexpr std::size_t kMostWrapped = std::size_t{1} << 16U;
  const bool wraps = !box().row().horizontalScroll && text.size() <= kMostWrapped;
  if (!wraps) setLineWrapMode(NoWrap);
  setPlainText(widgetLines(text));
  if (wraps) setLineWrapMode(WidgetWidth);
}

void TextEdit::setSelection(forms::TextSelection selection) {
  const std::u16string text = shownText();
  QTextCursor cursor = textCursor();
  cursor.setPosition(widgetPlace(text, selection.start));
  cursor.setPosition(widgetPlace(text, selection.start + selection.length),
                     QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void TextEdit::focusInEvent(QFocusEvent* event) {
  Typing<QPlainTextEdit>::focusInEvent(event);
  ensureCursorVisible();
}

void TextEdit::keyPressEvent(QKeyEvent* event) {
  const bool lineBreak = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // With Shift, Qt would separate the lines by another character.
  QKeyEvent plainBreak(event->type(), event->key(), Qt::NoModifier, event->text());
  const bool shiftedBreak = lineBreak && event->modifiers() == Qt::ShiftModifier;
  Typing<QPlainTextEdit>::keyPressEvent(shiftedBreak ? &plainBreak : event);
}

void TextEdit::insertFromMimeData(const QMimeData* source) {
  const std::u16string pasted = controlLines(widgetLines(fromQt(source->text())));
  QMimeData plain;
  plain.setText(toQt(pasted));
  Typing<QPlainTextEdit>::insertFromMimeData(&plain);
}

}  // namespace kvrnstep::qt
