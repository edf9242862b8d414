#include "lines/outline.h"

#include <algorithm>
#include <limits>

namespace kvrnstep::lines {

namespace {

/// If the first two labels follow one another, they decide; otherwise the first label decides that
/// cannot be both.
void read(List& list, const Numbers& numbers, std::int64_t step) {
  if (list.reading != Reading::Either) return;
  const bool second = list.count == 2;
  if (numbers.roman < 0 || (second && numbers.plain == list.first.plain + step)) {
    list.reading = Reading::Letters;
  }
  if (numbers.plain < 0 || (second && numbers.roman == list.first.roman + step)) {
    list.reading = Reading::Roman;
  }
}

}  // namespace

bool List::isRoman() const {
  constexpr std::int64_t kLastSingleLetter = 26;
  if (kind == LabelKind::Decimal) return false;
  if (reading == Reading::Either) return first.roman == 1 || first.plain > kLastSingleLetter;
  return reading == Reading::Roman;
}

bool Outline::next() {
  while (reader_.next()) {
    if (reader_.kind() == LineKind::Item) {
      takeItem();
      return true;
    }
    takeOther();
  }
  endFrom(0);
  return false;
}

void Outline::takeItem() {
  watchWidths(item());
  const std::size_t level = levelOf(item());
  const bool joins =
      level < open_.size() && !(open_[level].separated && beginsAnew(open_[level], item()));
  if (level + 1 < open_.size() || !joins) endFrom(joins ? level + 1 : level);
  if (!joins) open(item());
  join(open_.back(), item());
}

/// A line that is no item.
void Outline::takeOther() {
  switch (reader_.kind()) {
    case LineKind::Heading:
      return endAt(line().depth);
    case LineKind::Bullet:
      endAt(line().depth + 1);
      [[fallthrough]];
    case LineKind::Text:
      if (line().behindBlankLine) endAt(line().depth);
      return;
    case LineKind::Fence:
      for (List& list : open_) list.separated = list.separated || list.depth() >= line().depth;
      return;
    default:
      return;
  }
}

/// The innermost list that the item is of; behind all where it is of none.
template <class Belongs>
std::size_t Outline::innermost(const Item& item, Belongs belongs) const {
  std::size_t endedFrom = std::numeric_limits<std::size_t>::max();
  for (std::size_t level = open_.size(); level-- > 0;) {
    const List& list = open_[level];
    if (list.hasStyleOf(item) && list.depth() < endedFrom && belongs(list)) return level;
    if (list.depth() < item.depth) break;
    if (isOtherText(list)) endedFrom = list.left;
  }
  return open_.size();
}

std::size_t Outline::levelOf(const Item& item) const {
  const std::size_t level = innermost(item, [&](const List& list) {
    return list.alignment == Alignment::Right ? item.depth >= list.left && item.depth < list.end
                                              : item.depth == list.left;
  });
  if (level < open_.size()) return level;
  return innermost(item, [&](const List& list) { return endsInLine(list, item); });
}

/// A label that is narrower than those before it could be the first of an inner list. It is not if
/// it is the next label of the list, or if the list's own first label shows that lines were moved.
bool Outline::endsInLine(const List& list, const Item& item) const {
  if (list.alignment == Alignment::Left || item.hasLeadingZero()) return false;
  if (item.depth + item.width != list.end) return false;
  if (list.alignment == Alignment::Right || item.depth < list.left) return true;
  const bool inOrder = rules_.options.keepStart || beginsRight(list);
  return !inOrder || (isNext(list, item.numbers()) && !item.numbers().has(1));
}

/// Whether the item begins a new list in the place of one that is separated.
bool Outline::beginsAnew(const List& list, const Item& item) const {
  return line().behindBlankLine && item.numbers().has(1) && !isNext(list, item.numbers());
}

bool Outline::isNext(const List& list, const Numbers& numbers) const {
  const auto follows = [&](std::int64_t first) {
    return numbers.has(Sequence{first, rules_.options.step}.at(list.count));
  };
  if (rules_.options.keepStart) return follows(list.first.plain) || follows(list.first.roman);
  return follows(1) || follows(rules_.options.start);
}

/// The label that the first list will begin with counts too, because a previous run may have
/// written it.
bool Outline::beginsRight(const List& list) const {
  return list.first.has(1) || list.first.has(rules_.options.start);
}

/// Whether this is a list, as far as can be told.
bool Outline::isConfirmed(const List& list) const {
  return !list.isSingle(rules_) || beginsRight(list);
}

/// Whether the only item of the list does not count as one. Like other text behind a blank line it
/// then ends lists.
bool Outline::isOtherText(const List& list) const {
  return list.behindBlankLine && !isConfirmed(list);
}

void Outline::open(const Item& item) {
  for (std::size_t level = open_.size(); level > 0 && open_[level - 1].left >= item.depth;) {
    --level;
    if (open_[level].left > item.depth || isOtherText(open_[level])) endFrom(level);
    level = std::min(level, open_.size());
  }
  const bool begins = rules_.alignment == Alignment::Unknown && item.hasLeadingZero();
  open_.push_back({.number = lists_++,
                   .kind = item.kind,
                   .delimiter = item.delimiter,
                   .alignment = begins ? Alignment::Left : rules_.alignment,
                   .behindBlankLine = line().behindBlankLine,
                   .left = item.depth,
                   .end = item.depth + item.width,
                   .first = item.numbers()});
}

void Outline::join(List& list, const Item& item) {
  if (list.alignment == Alignment::Unknown && item.depth != list.left) {
    list.alignment = Alignment::Right;
  } else if (list.alignment == Alignment::Unknown && item.depth + item.width != list.end) {
    list.alignment = Alignment::Left;
  }
  if (list.alignment == Alignment::Right) dependsOnWidths_ = true;
  ++list.count;
  list.left = std::min(list.left, item.depth);
  list.width = std::max(list.width, item.width);
  list.separated = false;
  if (item.kind != LabelKind::Decimal) read(list, item.readings, rules_.options.step);
  if (!isConfirmed(list)) return;
  for (std::size_t level = open_.size() - 1; level > 0 && open_[level - 1].depth() >= list.left;) {
    open_[--level].separated = true;
  }
}

void Outline::watchWidths(const Item& item) {
  // If all lists begin at 1, no label is narrower than their first ones. So no inner list can end
  // in line with a first label, and wider labels later show that the outer list begins in one
  // column.
  const LineOptions& options = rules_.options;
  const bool narrow = item.kind == LabelKind::Decimal && options.start == 1 && options.step > 0 &&
                      !options.keepStart;
  if (narrow || rules_.alignment == Alignment::Left) return;
  constexpr std::size_t kWide = 16;
  for (const List& list : open_) {
    const auto [left, right] = std::minmax(item.depth, list.left);
    if (list.hasStyleOf(item) && left != right && right - left < kWide) dependsOnWidths_ = true;
  }
}

void Outline::endFrom(std::size_t level) {
  while (open_.size() > level) {
    const List list = open_.back();
    open_.pop_back();
    if (ended_) ended_(list);
    if (isOtherText(list)) endAt(list.left);
  }
}

void Outline::endAt(std::size_t depth) {
  while (!open_.empty() && open_.back().depth() >= depth) endFrom(open_.size() - 1);
}

}  // namespace kvrnstep::lines
