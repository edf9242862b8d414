#include "forms/control_sync.h"

#include <algorithm>
#include <utility>

#include "forms/keyboard.h"
#include "forms/text_sync.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"

namespace kvrnstep::forms {

Mark markOf(int value) {
  if (value == 0) return Mark::Clear;
  return value == 1 ? Mark::On : Mark::Mixed;
}

DrawnEntry drawnEntry(const MenuEntry& entry) {
  return {drawnCaption(entry), entry.separator(), entry.enabled(), entry.visible(),
          entry.checked()};
}

PixelRect ControlSync::pixelPlace() const {
  return view_.pixelPlace(control_);
}

void ControlSync::applyChanges() {
  if (!changes_.any() || applying_) return;
  applying_ = true;
  apply(std::exchange(changes_, Changes()));
  applying_ = false;
}

void ControlSync::apply(const Changes& changes) {
  if (control_.kind() == Kind::Menu) {
    if (changes.has(Property::ForeColor)) recolor();
    return setEntry(drawnEntry(static_cast<const MenuEntry&>(control_)));
  }
  if (changes.hasAny(Property::Left, Property::Width)) setPlace(pixelPlace());
  if (changes.has(Property::Enabled)) setEnabled(control_.enabled());
  if (changes.has(Property::Visible)) setVisible(control_.visible());
  if (changes.has(Property::Cursor)) setCursor(control_.cursor());
  if (changes.hasAny(Property::ForeColor, Property::BackColor)) recolor();
  switch (control_.kind()) {
    case Kind::Button:
    case Kind::Label:
      applyCaption(changes);
      if (changes.has(Property::Picture)) setPicture(control_.picture());
      break;
    case Kind::Image:
      if (changes.hasAny(Property::Picture, Property::Width)) setPicture(control_.picture());
      break;
    case Kind::CheckBox:
      applyCaption(changes);
      if (changes.has(Property::Value)) {
        setMark(markOf(static_cast<const CheckBox&>(control_).value()));
      }
      break;
    case Kind::OptionButton:
      applyCaption(changes);
      if (changes.has(Property::Value)) {
        setMark(static_cast<const OptionButton&>(control_).value() ? Mark::On : Mark::Clear);
      }
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
  if (changes.hasAny(Property::Caption, Property::Width)) fitCaption();
}

void ControlSync::applyBox(const TextBox& box, const Changes& changes) {
  if (changes.hasAny(Property::Font, Property::FontSize)) setFont(box.font(), box.fontSize());
  if (changes.has(Property::Text)) text()->showText();
  if (changes.hasAny(Property::Text, Property::SelStart)) text()->showSelection();
}

void ControlSync::applyCombo(const ComboBox& combo, const Changes& changes) {
  if (changes.has(Property::Items)) setItems(combo.entries().all());
  setIndex(combo.entries().selected());
  // Last, because the entries and the selected one change the text of the box too.
  text()->showText();
  text()->showSelection();
}

void ControlSync::applyList(const ListBox& list, const Changes& changes) {
  const bool filled = changes.has(Property::Items);
  const bool selected = filled || changes.has(Property::Index);
  if (filled) setItems(list.entries().all());
  if (selected) setIndex(list.entries().selected());
  // Last, because widgets scroll on their own when they get entries or a selected one.
  if (selected || changes.has(Property::TopIndex)) setTopIndex(list.topIndex());
  if (!changes.has(Property::Index)) return;
  bringIntoView(list.entries().selected());
  if (!scrolledAsAsked()) userScrolled(this->list(), scroll().first);
}

/// A scroll bar or a larger scale may leave room for fewer entries than the control counts on.
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
  // The widget may have changed its mark already, and those of its neighbours; the control decides.
  view_.markKind(control_.kind(), Property::Value);
  userClicked(control_);
}

void ControlSync::userSelectedEntry(int index) {
  if (applying_) return;
  // The control may refuse; a selection that was taken away comes back.
  mark(Property::Index);
  userClickedEntry(list(), index);
}

void ControlSync::userMayHaveScrolled() {
  if (!applying_ && !scrolledAsAsked()) userScrolled(list(), scroll().first);
}

}  // namespace kvrnstep::forms
