#include "forms/text_sync.h"

#include <utility>

#include "forms/user_actions.h"

namespace kvrnstep::forms {

void TextSync::showText() {
  if (showsText()) return;
  showing_ = true;
  setText(box_.text());
  showing_ = false;
}

void TextSync::showSelection() {
  if (shownSelection() == box_.selection()) return;
  showing_ = true;
  setSelection(box_.selection());
  showing_ = false;
}

void TextSync::userChangedText() {
  if (showing_) return;
  std::u16string text = editedText();
  const TextSelection caret = selectionIn(text);
  userEdited(box_, std::move(text), caret);
}

void TextSync::userMovedCaret() {
  // While a text is being replaced the caret is told of with the text.
  if (showing_ || box_.window().unloaded() || !showsText()) return;
  const TextSelection caret = selectionIn(box_.text());
  if (caret == box_.selection()) return;
  userSelected(box_, caret);
  // The control may have moved an end out of a line break.
  showSelection();
}

}  // namespace kvrnstep::forms
