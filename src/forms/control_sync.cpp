#include "forms/control_sync.h"

#include <algorithm>
#include <utility>

#include "forms/guard.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"

namespace kvrnstep::forms {

namespace {

Mark markOf(const Control& control) {
  const int value = control.kind() == Kind::CheckBox
                        ? static_cast<const CheckBox&>(control).value()
                        : static_cast<int>(static_cast<const OptionButton&>(control).value());
  if (value == 0) return Mark::Clear;
  return value == 1 ? Mark::On : Mark::Mixed;
}

}  // namespace

PixelRect ControlSync::pixelPlace() const {
  const Rect place = control_.shownPlace();
  const double twips = control_.window().design().twipsPerUnit;
  const int left = view_.pixels(place.left * twips);
  const int top = view_.pixels(place.top * twips);
  return {left, top, view_.pixels(place.right() * twips) - left,
          view_.pixels(place.bottom() * twips) - top};
}

void ControlSync::applyChanges() {
  if (!changes_.any() || applying_) return;
  const Meanwhile applying(applying_);
  apply(std::exchange(changes_, Changes()));
}

void ControlSync::apply(const Changes& changes) {
  if (control_.kind() == Kind::Menu) {
    if (changes.has(Property::Colors)) recolor();
    return setEntry(static_cast<const MenuEntry&>(control_), drawnCaption(control_));
  }
  if (changes.has(Property::Place)) setPlace(pixelPlace());
  if (changes.has(Property::Enabled)) setEnabled(control_.enabled());
  if (changes.has(Property::Visible)) setVisible(control_.visible());
  if (changes.has(Property::Cursor)) setCursor(control_.cursor());
  if (changes.has(Property::Colors)) recolor();
  switch (control_.kind()) {
    case Kind::Label:
      applyCaption(changes);
      break;
    case Kind::Button:
      applyCaption(changes);
      [[fallthrough]];
    case Kind::Image:
      // In dark windows it may be another one.
      if (changes.has(Property::Picture, Property::Place, Property::Colors)) {
        setPicture(control_.picture());
      }
      break;
    case Kind::CheckBox:
    case Kind::OptionButton:
      applyCaption(changes);
      if (changes.has(Property::Value)) setMark(markOf(control_));
      break;
    case Kind::TextBox:
      return applyBox(static_cast<const TextBox&>(control_), changes);
    case Kind::ComboBox:
      return applyCombo(static_cast<const ComboBox&>(control_), changes);
    case Kind::ListBox:
      return applyList(list(), changes);
    default:
      break;
  }
}

void ControlSync::applyCaption(const Changes& changes) {
  if (changes.has(Property::Caption)) setCaption(drawnCaption(control_));
  if (changes.has(Property::Caption, Property::Place)) fitCaption();
}

void ControlSync::applyBox(const TextBox& box, const Changes& changes) {
  if (changes.has(Property::Font)) {
    // Finding a font takes longer than making a box, and some boxes never come into view.
    const bool inView = box.place().right() > 0;
    inView ? setFont(box.font(), box.fontSize()) : mark(Property::Font);
  }
  if (changes.has(Property::Text)) text()->showText();
  if (changes.has(Property::Text, Property::Selection)) text()->showSelection();
}

void ControlSync::applyItems(const Entries& entries) {
  if (shownItems_ == entries.items) return;
  shownItems_ = entries.items;
  setItems(shownItems_);
}

void ControlSync::applyCombo(const ComboBox& combo, const Changes& changes) {
  if (changes.has(Property::Items)) applyItems(combo.entries());
  setIndex(combo.entries().selected);
  // Last, because the entries and the selected one change the text of the box too.
  text()->showText();
  text()->showSelection();
}

void ControlSync::applyList(const ListBox& list, const Changes& changes) {
  const bool filled = changes.has(Property::Items);
  const bool selected = filled || changes.has(Property::Index);
  if (filled) applyItems(list.entries());
  if (selected) setIndex(list.entries().selected);
  // Last, because widgets scroll on their own when they get entries or a selected one.
  if (selected || changes.has(Property::TopIndex)) setTopIndex(list.topIndex());
  if (!changes.has(Property::Index)) return;
  bringIntoView(list.entries().selected);
  if (!scrolledAsAsked()) userScrolled(this->list(), scroll().first);
}

/// Because of a scroll bar or a larger scale the widget may show fewer entries than the control
/// expects.
void ControlSync::bringIntoView(int index) {
  if (index < 0) return;
  const Scroll now = scroll();
  const int inView = list().ListCount() - now.last;
  if (index < now.first) setTopIndex(index);
  if (index >= now.first + inView) setTopIndex(index - inView + 1);
}

bool ControlSync::scrolledAsAsked() const {
  const Scroll now = scroll();
  return now.first == std::min(list().topIndex(), now.last);
}

void ControlSync::userPressedButton() {
  if (applying_) return;
  // The widget may have changed its mark and those of its neighbours. They must show the values of
  // the controls again.
  view_.markKind(control_.kind(), Property::Value);
  userClicked(control_);
}

void ControlSync::userSelectedEntry(int index) {
  if (applying_) return;
  // The control may refuse, and the widget then selects the old entry again.
  mark(Property::Index);
  if (control_.kind() == Kind::ListBox) return userClickedEntry(list(), index);
  userChose(static_cast<ComboBox&>(control_), index);
}

void ControlSync::userMayHaveScrolled() {
  if (!applying_ && !scrolledAsAsked()) userScrolled(list(), scroll().first);
}

void TextSync::showText() {
  if (showsText()) return;
  const Meanwhile showing(showing_);
  setText(box_.text());
}

void TextSync::showSelection() {
  if (shownSelection() == box_.selection()) return;
  const Meanwhile showing(showing_);
  setSelection(box_.selection());
}

void TextSync::userChangedText() {
  if (showing_ || showsText()) return;
  guarded([this] {
    std::u16string text = editedText();
    const TextSelection caret = selectionIn(text);
    userEdited(box_, std::move(text), caret);
  });
}

void TextSync::userMovedCaret() {
  // While a text is being replaced, userChangedText() reports the caret too.
  if (showing_ || box_.window().unloaded() || !showsText()) return;
  const TextSelection caret = selectionIn(box_.text());
  if (caret == box_.selection()) return;
  userSelected(box_, caret);
  // The control may have moved an end of the selection out of a line break.
  showSelection();
}

}  // namespace kvrnstep::forms
