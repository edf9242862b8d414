#include "forms/control.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "forms/window.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::forms {

namespace {

/// No caret stands between CR and LF; it goes behind both.
std::size_t outOfLineBreak(std::u16string_view text, std::size_t position) {
  const bool within = position > 0 && position < text.size() && text[position - 1] == u'\r' &&
                      text[position] == u'\n';
  return within ? position + 1 : position;
}

/// Keeps no more than the first line of what went into a text, which ends at the caret.
void dropFurtherLines(std::u16string_view before, std::u16string& text, TextSelection& caret) {
  const auto same = std::ranges::mismatch(before, text).in2 - text.begin();
  const std::size_t lineBreak = text.find_first_of(u"\r\n", static_cast<std::size_t>(same));
  const std::size_t end = std::min(caret.start + caret.length, text.size());
  if (lineBreak >= end) return;
  text.erase(lineBreak, end - lineBreak);
  caret = {lineBreak, 0};
}

}  // namespace

Control::Control(Window& window, const ControlRow& row, Control* container)
    : window_(window),
      row_(row),
      container_(container),
      caption_(row.caption),
      place_(row.place),
      picture_(row.picture),
      enabled_(row.enabled),
      visible_(row.visible) {}

std::string Control::scriptName() const {
  std::string name(row_.name);
  if (row_.index >= 0) name.append("(").append(std::to_string(row_.index)).append(")");
  return name;
}

void Control::changed(Property property) {
  window_.changed(*this, property);
}

void Control::setEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) changed(Property::Enabled);
}

void Control::setVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) changed(Property::Visible);
}

void Control::setCaption(std::u16string_view caption) {
  caption_ = caption;
  changed(Property::Caption);
}

void Control::setLeft(double left) {
  place_.left = left;
  changed(Property::Left);
}

void Control::setWidth(double width) {
  place_.width = width;
  changed(Property::Width);
}

void Control::setPlace(const Rect& place) {
  if (std::exchange(place_, place) != place) changed(Property::Width);
}

void Control::setPicture(Picture picture) {
  if (std::exchange(picture_, picture) != picture) changed(Property::Picture);
}

void Control::setCursor(int resourceId) {
  cursor_ = resourceId;
  changed(Property::Cursor);
}

void Control::setDragCursor(int resourceId) {
  dragCursor_ = resourceId;
  changed(Property::Cursor);
}

bool Control::reachable() const {
  if (window_.unloaded()) return false;
  if (kind() == Kind::Menu) return pickable();
  double left = place_.left;
  double top = place_.top;
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->enabled_ || !control->visible_) return false;
    if (control == this) continue;
    left += control->place_.left;
    top += control->place_.top;
  }
  return left + place_.width > 0 && left < window_.innerWidth() && top + place_.height > 0 &&
         top < window_.innerHeight() && !covered();
}

bool Control::pickable() const {
  // A pop-up menu is never visible in the menu bar, and yet its entries can be picked.
  for (const Control* menu = container_; menu != nullptr; menu = menu->container_) {
    if (!menu->enabled_ || (menu->container_ != nullptr && !menu->visible_)) return false;
  }
  return enabled_ && visible_;
}

bool Control::covered() const {
  if (container_ != nullptr) return false;
  const double x = place_.left + place_.width / 2;
  const double y = place_.top + place_.height / 2;
  const auto& all = window_.controls();
  const auto self = std::ranges::find(all, this, &std::unique_ptr<Control>::get);
  return std::any_of(self + 1, all.end(), [&](const auto& other) {
    const Rect& place = other->place_;
    return other->kind() == Kind::Frame && other->container_ == nullptr && other->visible_ &&
           x >= place.left && x < place.left + place.width && y >= place.top &&
           y < place.top + place.height;
  });
}

TextControl::TextControl(Window& window, const ControlRow& row, Control* container)
    : Control(window, row, container), text_(row.text) {}

void TextControl::setText(std::u16string text) {
  if (text_ != text) {
    text_ = std::move(text);
    selection_ = {row().multiLine ? 0 : text_.size(), 0};
    changed(Property::Text);
  }
  if (onChange) onChange(index());
}

void TextControl::textByUser(std::u16string text, TextSelection selection) {
  if (!row().multiLine) dropFurtherLines(text_, text, selection);
  text_ = std::move(text);
  selection_ = selection;
  changed(Property::Text);
  if (onChange) onChange(index());
}

void TextControl::setSelection(TextSelection selection) {
  const std::size_t start = std::min(selection.start, text_.size());
  const std::size_t end = start + std::min(selection.length, text_.size() - start);
  selection.start = outOfLineBreak(text_, start);
  selection.length = outOfLineBreak(text_, end) - selection.start;
  if (selection == selection_) return;
  selection_ = selection;
  changed(Property::SelStart);
}

void TextControl::replaceSelection(std::u16string_view text) {
  std::u16string whole = text_;
  whole.replace(selection_.start, selection_.length, text);
  const std::size_t caret = selection_.start + text.size();
  setText(std::move(whole));
  setSelection({caret, 0});
}

void TextBox::setFont(std::u16string_view font) {
  font_ = font;
  changed(Property::Font);
}

void TextBox::setFontSize(float points) {
  fontSize_ = points;
  changed(Property::FontSize);
}

void TextBox::setBackColor(std::int32_t color) {
  backColor_ = color;
  changed(Property::BackColor);
}

void TextBox::setForeColor(std::int32_t color) {
  foreColor_ = color;
  changed(Property::ForeColor);
}

const std::u16string& ComboBox::List(int index) const {
  return entries_.items_.at(static_cast<std::size_t>(index));
}

void ComboBox::Clear() {
  entries_ = Entries();
  changed(Property::Items);
}

void ComboBox::AddItem(std::u16string text) {
  entries_.items_.push_back(std::move(text));
  changed(Property::Items);
}

void ComboBox::choose(int index) {
  if (index < 0 || index >= ListCount()) return;
  entries_.selected_ = index;
  setText(List(index));
  if (onClick) onClick(this->index());
}

const std::u16string& ListBox::List(int index) const {
  return entries_.items_.at(static_cast<std::size_t>(index));
}

void ListBox::Clear() {
  entries_ = Entries();
  topIndex_ = 0;
  changed(Property::Items);
}

void ListBox::AddItem(std::u16string text) {
  entries_.items_.push_back(std::move(text));
  changed(Property::Items);
}

void ListBox::InsertItem(int index, std::u16string text) {
  index = std::clamp(index, 0, ListCount());
  entries_.items_.insert(entries_.items_.begin() + index, std::move(text));
  if (entries_.selected_ >= index) ++entries_.selected_;
  changed(Property::Items);
}

void ListBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) return;
  entries_.items_.erase(entries_.items_.begin() + index);
  if (entries_.selected_ == index) {
    entries_.selected_ = -1;
  } else if (entries_.selected_ > index) {
    --entries_.selected_;
  }
  topIndex_ = std::min(topIndex_, std::max(ListCount() - 1, 0));
  changed(Property::Items);
}

void ListBox::setIndex(int index) {
  if (index < -1 || index >= ListCount()) return;
  if (std::exchange(entries_.selected_, index) == index) return;
  changed(Property::Index);
  if (index >= 0) setTopIndex(topShowing(index));
  if (onClick) onClick(this->index());
}

void ListBox::setTopIndex(int index) {
  if (index >= 0 && index < ListCount()) topIndex_ = index;
  changed(Property::TopIndex);
}

Rect ListBox::shownPlace() const {
  Rect shown = place();
  const double onePixel = kTwipsPerPixel / window().design().twipsPerUnit;
  const double room = window().innerHeight() - onePixel - shown.top;
  if (container() == nullptr && room > 0) shown.height = std::min(shown.height, room);
  return shown;
}

int ListBox::lines() const {
  // Pixels at the nominal density, of the caption font and of both edges.
  constexpr double kLine = 13;
  constexpr double kEdges = 4;
  const double pixels = shownPlace().height * window().design().twipsPerUnit / kTwipsPerPixel;
  return std::max(1, static_cast<int>((pixels - kEdges) / kLine));
}

int ListBox::firstInView() const {
  return std::clamp(topIndex_, 0, std::max(0, ListCount() - lines()));
}

int ListBox::topShowing(int index) const {
  const int first = firstInView();
  if (index < first) return index;
  return index < first + lines() ? topIndex_ : index - lines() + 1;
}

CheckBox::CheckBox(Window& window, const ControlRow& row, Control* container)
    : Control(window, row, container), value_(row.checked ? 1 : 0) {}

void CheckBox::setValue(int value) {
  value_ = value;
  changed(Property::Value);
  if (onClick) onClick(index());
}

OptionButton::OptionButton(Window& window, const ControlRow& row, Control* container)
    : Control(window, row, container), value_(row.checked) {}

void OptionButton::setValue(bool value) {
  value_ = value;
  changed(Property::Value);
  if (!value) return;
  for (const auto& other : window().controls()) {
    if (other->kind() != Kind::OptionButton || other.get() == this ||
        other->container() != container()) {
      continue;
    }
    auto& button = static_cast<OptionButton&>(*other);
    if (std::exchange(button.value_, false)) button.changed(Property::Value);
  }
  if (onClick) onClick(index());
}

Spinner::Spinner(Window& window, const ControlRow& row, Control* container)
    : Control(window, row, container), value_(row.value) {}

void Spinner::setValue(std::int32_t value) {
  // A value that has to be clamped comes from a box that must not go on showing it.
  if (value != value_) putValue(value);
}

void Spinner::putValue(std::int32_t value) {
  value_ = std::clamp(value, row().minimum, row().maximum);
  changed(Property::Value);
  auto* buddy = static_cast<TextControl*>(window().find(row().buddy, row().buddyIndex));
  if (buddy == nullptr) return;
  buddy->setText(text::decimal(value_));
}

MenuEntry::MenuEntry(Window& window, const ControlRow& row, Control* container)
    : Control(window, row, container), checked_(row.checked) {}

bool MenuEntry::opensMenu() const {
  return container() == nullptr || std::ranges::any_of(window().controls(), [&](const auto& entry) {
           return entry->container() == this;
         });
}

void MenuEntry::setChecked(bool checked) {
  if (std::exchange(checked_, checked) != checked) changed(Property::Checked);
}

}  // namespace kvrnstep::forms
