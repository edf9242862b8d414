#include "forms/control.h"

#include <algorithm>
#include <utility>

#include "forms/view_sync.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::forms {

namespace {

/// A caret between CR and LF moves behind both.
std::size_t outOfLineBreak(std::u16string_view text, std::size_t position) {
  const bool within = position > 0 && position < text.size() && text[position - 1] == u'\r' &&
                      text[position] == u'\n';
  return within ? position + 1 : position;
}

/// Keeps only the first line of what the user has put into a text, up to the caret.
void dropFurtherLines(std::u16string_view before, std::u16string& text, TextSelection& caret) {
  const auto same = std::ranges::mismatch(before, text).in2 - text.begin();
  const std::size_t lineBreak = text.find_first_of(u"\r\n", static_cast<std::size_t>(same));
  const std::size_t end = std::min(caret.start + caret.length, text.size());
  if (lineBreak >= end) return;
  text.erase(lineBreak, end - lineBreak);
  caret = {lineBreak, 0};
}

}  // namespace

Rect common(const Rect& one, const Rect& other) {
  const double left = std::max(one.left, other.left);
  const double top = std::max(one.top, other.top);
  return {left, top, std::max(0.0, std::min(one.right(), other.right()) - left),
          std::max(0.0, std::min(one.bottom(), other.bottom()) - top)};
}

std::string Control::scriptName() const {
  std::string name(row_.name);
  if (row_.index >= 0) name.append("(").append(std::to_string(row_.index)).append(")");
  return name;
}

void Control::changed(Property property) {
  if (ViewSync* view = window_.view()) view->changed(*this, property);
}

Rect Control::shownPlace() const {
  if (kind() == Kind::Button && container_ != nullptr) {
    return common(place_, {0, 0, container_->place_.width, container_->place_.height});
  }
  Rect shown = place_;
  const double onePixel = kTwipsPerPixel / window_.design().twipsPerUnit;
  if (row_.draggable) {
    const double beside = 4 * onePixel;
    const double above = 2 * onePixel;
    return {shown.left - beside, shown.top - above, shown.width + 2 * beside,
            shown.height + 2 * above};
  }
  if (kind() == Kind::ListBox && container_ == nullptr) {
    const double room = window_.innerHeight() - onePixel - shown.top;
    if (room > 0) shown.height = std::min(shown.height, room);
  }
  return shown;
}

bool Control::reachable() const {
  if (window_.unloaded()) return false;
  Rect inWindow = place_;
  for (const Control* control = this; control != nullptr; control = control->container_) {
    // A pop-up menu is never visible in the menu bar, and yet its entries can be picked.
    const bool holdsEntries =
        control != this && control->kind() == Kind::Menu && control->container_ == nullptr;
    if (!control->enabled_ || (!control->visible_ && !holdsEntries)) return false;
    if (control == this) continue;
    inWindow.left += control->place_.left;
    inWindow.top += control->place_.top;
  }
  const Rect inside{0, 0, window_.innerWidth(), window_.innerHeight()};
  return kind() == Kind::Menu || (common(inWindow, inside).area() > 0 && !covered());
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
           x >= place.left && x < place.right() && y >= place.top && y < place.bottom();
  });
}

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
  changed(Property::Selection);
}

void TextControl::replaceSelection(std::u16string_view text) {
  std::u16string whole = text_;
  whole.replace(selection_.start, selection_.length, text);
  const std::size_t caret = selection_.start + text.size();
  setText(std::move(whole));
  setSelection({caret, 0});
}

void ComboBox::choose(int index) {
  if (index < 0 || index >= ListCount()) return;
  entries_.selected = index;
  setText(List(index));
  if (onClick) onClick(this->index());
}

void ListBox::InsertItem(int index, std::u16string text) {
  index = std::clamp(index, 0, ListCount());
  entries_.items.insert(entries_.items.begin() + index, std::move(text));
  if (entries_.selected >= index) ++entries_.selected;
  changed(Property::Items);
}

void ListBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) return;
  entries_.items.erase(entries_.items.begin() + index);
  if (entries_.selected == index) {
    entries_.selected = -1;
  } else if (entries_.selected > index) {
    --entries_.selected;
  }
  entries_.top = std::min(entries_.top, std::max(ListCount() - 1, 0));
  changed(Property::Items);
}

void ListBox::setIndex(int index) {
  if (index < -1 || index >= ListCount()) return;
  if (std::exchange(entries_.selected, index) == index) return;
  changed(Property::Index);
  if (index >= 0) setTopIndex(topShowing(index));
  if (onClick) onClick(this->index());
}

void ListBox::setTopIndex(int index) {
  if (index >= 0 && index < ListCount()) entries_.top = index;
  changed(Property::TopIndex);
}

int ListBox::lines() const {
  // Pixels at the nominal density, of the caption font and of both edges.
  constexpr double kLine = 13;
  constexpr double kEdges = 4;
  const double pixels = shownPlace().height * window().design().twipsPerUnit / kTwipsPerPixel;
  return std::max(1, static_cast<int>((pixels - kEdges) / kLine));
}

int ListBox::firstInView() const {
  return std::clamp(entries_.top, 0, std::max(0, ListCount() - lines()));
}

int ListBox::topShowing(int index) const {
  const int first = firstInView();
  if (index < first) return index;
  return index < first + lines() ? entries_.top : index - lines() + 1;
}

void CheckBox::setValue(int value) {
  value_ = value;
  changed(Property::Value);
  if (onClick) onClick(index());
}

void OptionButton::setValue(bool value) {
  value_ = value;
  changed(Property::Value);
  if (!value) return;
  for (const auto& other : window().controls()) {
    if (other->kind() != Kind::OptionButton || other->container() != container()) continue;
    auto& button = static_cast<OptionButton&>(*other);
    if (&button != this) button.assign(button.value_, false, Property::Value);
  }
  if (onClick) onClick(index());
}

void Spinner::setValue(std::int32_t value) {
  // Even if the value within the range is the old one, because the box shows the value outside of
  // it.
  if (value != value_) putValue(value);
}

void Spinner::putValue(std::int32_t value) {
  value_ = std::clamp(value, row().minimum, row().maximum);
  changed(Property::Value);
  if (buddy() != nullptr) static_cast<TextControl*>(buddy())->setText(text::decimal(value_));
}

bool MenuEntry::opensMenu() const {
  return container() == nullptr || window().findIf([this](const Control& entry) {
    return entry.container() == this;
  }) != nullptr;
}

}  // namespace kvrnstep::forms
