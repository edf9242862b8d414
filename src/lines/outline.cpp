#include "lines/outline.h"

#include <algorithm>
#include <utility>

namespace kvrnstep::lines {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool sameStyle(const List& list, const Item& item) {
  return list.kind == item.kind && list.delimiter == item.delimiter;
}

/// Two labels that follow one another tell; otherwise the first one that cannot be both.
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

bool List::isSingle(const OutlineRules& rules) const {
  return kind != LabelKind::Decimal && rules.needsSibling && count == 1;
}

bool List::isRoman() const {
  constexpr std::int64_t kLastSingleLetter = 26;
  if (reading == Reading::Either) return first.roman == 1 || first.plain > kLastSingleLetter;
  return reading == Reading::Roman;
}

const List& Outline::item(const Item& item) {
  watchWidths(item);
  const std::size_t level = listOf(item);
  const bool anew = level != kNone && behindBlankLine_ && open_[level].separated &&
                    item.numbers().has(1) && !isNext(open_[level], item.numbers());
  if (level != kNone && (anew || level + 1 < open_.size())) endFrom(anew ? level : level + 1);
  List& list = level == kNone || anew ? open(item) : open_.back();
  join(list, item);
  behindBlankLine_ = false;
  return list;
}

void Outline::other(const LineReader& line) {
  const bool behindBlankLine = std::exchange(behindBlankLine_, line.kind() == LineKind::Blank);
  switch (line.kind()) {
    case LineKind::Heading:
      return endAt(line.depth());
    case LineKind::Bullet:
      endAt(line.depth() + 1);
      [[fallthrough]];
    case LineKind::Text:
      if (behindBlankLine) endAt(line.depth());
      return;
    case LineKind::Fence:
      for (List& list : open_) list.separated = list.separated || list.depth() >= line.depth();
      return;
    default:
      return;
  }
}

std::size_t Outline::listOf(const Item& item) const {
  // Most items are of the innermost list.
  if (!open_.empty() && sameStyle(open_.back(), item) && beginsInLine(open_.back(), item)) {
    return open_.size() - 1;
  }
  const std::size_t level = search(item, &Outline::beginsInLine);
  return level != kNone ? level : search(item, &Outline::endsInLine);
}

/// The innermost list that the item is of.
std::size_t Outline::search(const Item& item, Belongs belongs) const {
  std::size_t endedFrom = kNone;
  for (std::size_t level = open_.size(); level-- > 0;) {
    const List& list = open_[level];
    if (sameStyle(list, item) && list.depth() < endedFrom && (this->*belongs)(list, item)) {
      return level;
    }
    if (list.depth() < item.depth) return kNone;
    if (isOtherText(list)) endedFrom = list.left;
  }
  return kNone;
}

/// Whether the only item of the list is none, and ends lists like other text behind a blank line.
bool Outline::isOtherText(const List& list) const {
  return list.behindBlankLine && !isConfirmed(list);
}

/// Whether this is a list, as far as can be told. The label that the first list will begin with
/// may be one that it has got.
bool Outline::isConfirmed(const List& list) const {
  return !list.isSingle(rules_) || list.first.has(1) || list.first.has(rules_.numbers.first);
}

bool Outline::beginsInLine(const List& list, const Item& item) const {
  return list.alignment == Alignment::Right ? item.depth >= list.left && item.depth < list.end
                                            : item.depth == list.left;
}

/// A label that is narrower than those before it could be the first of an inner list. It is not
/// where it is the next one, or where the list's own first label shows that lines were moved.
bool Outline::endsInLine(const List& list, const Item& item) const {
  if (list.alignment == Alignment::Left || item.hasLeadingZero()) return false;
  if (item.depth + item.width != list.end) return false;
  if (list.alignment == Alignment::Right || item.depth < list.left) return true;
  const bool inOrder =
      rules_.keepStart || list.first.has(1) || list.first.has(rules_.numbers.first);
  return !inOrder || (isNext(list, item.numbers()) && !item.numbers().has(1));
}

bool Outline::isNext(const List& list, const Numbers& numbers) const {
  const auto follows = [&](std::int64_t first) {
    return numbers.has(Sequence{first, rules_.numbers.step}.at(list.count));
  };
  if (rules_.keepStart) return follows(list.first.plain) || follows(list.first.roman);
  return follows(1) || follows(rules_.numbers.first);
}

List& Outline::open(const Item& item) {
  for (std::size_t level = open_.size(); level > 0 && open_[level - 1].left >= item.depth;) {
    --level;
    if (open_[level].left > item.depth || isOtherText(open_[level])) endFrom(level);
    level = std::min(level, open_.size());
  }
  List& list = open_.emplace_back();
  list.number = lists_++;
  if (item.kind != LabelKind::Decimal) list.undecided = undecided_++;
  list.kind = item.kind;
  list.delimiter = item.delimiter;
  if (!rules_.mayAlign || item.hasLeadingZero()) list.alignment = Alignment::Left;
  if (rules_.alwaysAligns) list.alignment = Alignment::Right;
  list.behindBlankLine = behindBlankLine_;
  list.left = item.depth;
  list.end = item.depth + item.width;
  list.first = item.numbers();
  return list;
}

void Outline::join(List& list, const Item& item) {
  const bool ends = item.depth + item.width == list.end;
  if (list.alignment == Alignment::Unknown && item.depth != list.left) {
    list.alignment = Alignment::Right;
  } else if (list.alignment == Alignment::Unknown && !ends) {
    list.alignment = Alignment::Left;
  }
  if (list.alignment == Alignment::Right) dependsOnWidths_ = true;
  ++list.count;
  list.left = std::min(list.left, item.depth);
  list.width = std::max(list.width, item.width);
  list.separated = false;
  if (item.kind != LabelKind::Decimal) read(list, item.readings, rules_.numbers.step);
  if (!isConfirmed(list)) return;
  for (std::size_t level = open_.size() - 1; level > 0 && open_[level - 1].depth() >= list.left;) {
    open_[--level].separated = true;
  }
}

void Outline::watchWidths(const Item& item) {
  // Where all lists begin at 1, their first labels are as narrow as there are: no inner list can
  // end in line with one, and behind wider labels the outer list is seen to begin in one column.
  const bool narrow = item.kind == LabelKind::Decimal && rules_.numbers.first == 1 &&
                      rules_.numbers.step > 0 && !rules_.keepStart;
  if (narrow || !rules_.mayAlign) return;
  constexpr std::size_t kWide = 16;
  for (const List& list : open_) {
    const auto [left, right] = std::minmax(item.depth, list.left);
    if (sameStyle(list, item) && left != right && right - left < kWide) dependsOnWidths_ = true;
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
