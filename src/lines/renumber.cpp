#include <algorithm>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "lines/lines.h"
#include "lines/outline.h"
#include "lines/part.h"
#include "lines/rewriter.h"

namespace kvrnstep::lines {

namespace {

/// How one list is to be labelled.
struct ListPlan {
  bool isList = false;  ///< false if it only looks like one
  LineLabel label;
  Sequence numbers;
  std::size_t left = 0;   ///< of aligned labels: the column where the widest one begins …
  std::size_t right = 0;  ///< … and where all end; 0 where none are aligned
  std::size_t width = 0;  ///< what labels behind a prefix are filled up to with blanks
};

/// Changes the labels of a part in two readings: the first one finds what has to be known of whole
/// lists before their first labels can be written.
class Relabelling {
 public:
  Relabelling(std::string_view text, const Part& part, const Rules& rules)
      : text_(text), part_(part), rules_(rules) {
    Outline outline(text, part, rules, [this](const List& list) { note(list); });
    while (outline.next()) continue;
    dependsOnWidths_ = outline.dependsOnWidths();
    std::ranges::sort(aligned_, {}, &AlignedList::number);
  }

  /// As the outline knows it.
  [[nodiscard]] bool dependsOnWidths() const { return dependsOnWidths_; }

  /// Writes the labels anew.
  /// @throws NoLabel before anything is written
  void relabel(const Write& write) const {
    if (!allLabelsExist_) requireLabels();
    Rewriter out(text_, write);
    std::string label;
    forEachItem([&](const Outline& outline, const ListPlan& plan, std::int64_t number) {
      const TextLine& line = outline.line();
      if (plan.right > 0) moveTo(out, line, plan.right - labelWidth(plan.label.style(), number));
      out.keepTo(line.text);
      label.clear();
      plan.label.appendVisible(label, number, plan.width);
      out.add(label);
      out.skipTo(outline.item().end);
    });
    out.finish();
  }

  /// Takes the labels away.
  /// @param ownBlanks blanks in front of an item that belong to its label
  void unlabel(std::size_t ownBlanks, const Write& write) const {
    Rewriter out(text_, write);
    forEachItem([&](const Outline& outline, const ListPlan& plan, std::int64_t /*number*/) {
      const TextLine& line = outline.line();
      moveTo(out, line, plan.right > 0 ? plan.left : line.depth, ownBlanks);
      out.skipTo(behindBlanks(text_, outline.item().end));
    });
    out.finish();
  }

 private:
  struct Facts {
    bool isRoman : 1 = false;
    bool isSingle : 1 = false;
  };
  struct AlignedList {
    std::size_t number = 0;  ///< of all lists
    std::size_t left = 0;
    std::size_t width = 0;
    std::size_t count = 0;
  };

  void note(const List& list) {
    facts_.resize(std::max(facts_.size(), list.number + 1));
    facts_[list.number] = {list.isRoman(), list.isSingle(rules_)};
    const bool aligned = list.alignment == Alignment::Right;
    if (aligned || rules_.alignsBehindPrefix) {
      const std::size_t width = aligned ? list.end - list.left : list.width;
      aligned_.push_back({list.number, list.left, width, list.count});
    }
    allLabelsExist_ = allLabelsExist_ && allExist(list);
  }

  /// Whether there are labels for all numbers that its items may get.
  [[nodiscard]] bool allExist(const List& list) const {
    const auto least = list.kind == LabelKind::Decimal ? Numbered : RomanNumeral;
    const auto exists = [&](std::int64_t number) {
      return rules_.label ? rules_.label->exists(number) : labelExists(least, number);
    };
    const LineOptions& options = rules_.options;
    const auto allFrom = [&](std::int64_t first) {
      return exists(first) && exists(Sequence{first, options.step}.at(list.count - 1));
    };
    if (!options.keepStart) return allFrom(1) && allFrom(options.start);
    return (list.first.plain < 0 || allFrom(list.first.plain)) &&
           (list.first.roman < 0 || allFrom(list.first.roman));
  }

  /// Calls `act` at each item of a list, with the list's plan and the item's number.
  template <class Act>
  void forEachItem(Act act) const {
    Outline outline(text_, part_, rules_, {});
    std::vector<ListPlan> plans;  // of the lists around the item
    bool isFirst = true;
    while (outline.next()) {
      const List& list = outline.list();
      if (list.count == 1) {
        plans.erase(plans.begin() + static_cast<std::ptrdiff_t>(outline.level()), plans.end());
        plans.push_back(planOf(list, outline.item(), isFirst));
      }
      const ListPlan& plan = plans[outline.level()];
      if (plan.isList) act(outline, plan, plan.numbers.at(list.count - 1));
    }
  }

  /// @param isFirst whether there has been no list yet; a single label is none
  [[nodiscard]] ListPlan planOf(const List& list, const Item& first, bool& isFirst) const {
    const auto [isRoman, isSingle] = facts_[list.number];
    const LineOptions& options = rules_.options;
    Sequence numbers{.step = options.step};
    if (options.keepStart) {
      numbers.first = isRoman ? list.first.roman : list.first.plain;
    } else if (!isSingle && std::exchange(isFirst, false)) {
      numbers.first = options.start;
    }
    ListPlan plan{.isList = !isSingle || list.first.has(1),
                  .label = rules_.label ? *rules_.label
                                        : LineLabel(styleOf(list, first, numbers), list.delimiter),
                  .numbers = numbers};
    const auto aligned = std::ranges::lower_bound(aligned_, list.number, {}, &AlignedList::number);
    if (aligned != aligned_.end() && aligned->number == list.number) align(plan, *aligned);
    return plan;
  }

  /// Of labels that nobody has described.
  [[nodiscard]] LabelStyle styleOf(const List& list, const Item& first,
                                   const Sequence& numbers) const {
    LabelStyle style{.upperCase = list.kind == LabelKind::Capital, .digits = rules_.options.digits};
    if (list.kind != LabelKind::Decimal) {
      style.type = facts_[list.number].isRoman ? RomanNumeral : Alphabetical;
    }
    // If the first label has no leading zero afterwards, the next run could not know the width.
    const bool keepsZero = labelWidth({}, numbers.first) < first.label.size();
    if (style.digits == 0 && first.hasLeadingZero() && keepsZero) style.digits = first.label.size();
    return style;
  }

  /// If a label becomes wider than the others, all move to the right.
  void align(ListPlan& plan, const AlignedList& list) const {
    const std::size_t widest = widestLabel(plan.label.style(), plan.numbers, list.count);
    const std::size_t width = std::max(list.width, widest);
    if (rules_.alignsBehindPrefix) {
      plan.width = width;
    } else {
      plan.left = list.left;
      plan.right = list.left + width;
    }
  }

  void requireLabels() const {
    forEachItem([](const Outline& outline, const ListPlan& plan, std::int64_t number) {
      plan.label.require(number, outline.line().number);
    });
  }

  /// Lets what follows begin in a column, in place of the blanks that a line begins with.
  /// @param ownBlanks blanks before that column that are left out, too
  void moveTo(Rewriter& out, const TextLine& line, std::size_t column,
              std::size_t ownBlanks = 0) const {
    std::size_t reached = 0;
    std::size_t place = line.begin;
    for (; place < line.text; ++place) {
      const std::size_t next = columnBehind(text_[place], reached);
      if (next > column) break;
      reached = next;
    }
    out.keepTo(place - std::min(place - line.begin, ownBlanks));
    out.add(std::string(column - reached, ' '));
    out.skipTo(line.text);
  }

  std::string_view text_;
  Part part_;
  const Rules& rules_;
  bool allLabelsExist_ = true;
  bool dependsOnWidths_ = false;
  std::deque<Facts> facts_;          ///< of all lists
  std::deque<AlignedList> aligned_;  ///< by their numbers
};

}  // namespace

void renumberPart(std::string_view text, const Part& part, const Rules& rules, const Write& write) {
  if (rules.label && !rules.label->numbered()) return write(text);
  const Relabelling relabelling(text, part, rules);
  if (!relabelling.dependsOnWidths()) return relabelling.relabel(write);
  // Only labels of the final width show which of them end in one column.
  constexpr int kMostRounds = 16;
  std::string settled(text.substr(part.begin, part.end - part.begin));
  for (int round = 0; round < kMostRounds; ++round) {
    std::string next;
    next.reserve(settled.size() + settled.size() / 16);
    Relabelling(settled, {0, settled.size(), part.linesAbove}, rules)
        .relabel([&](std::string_view block) { next += block; });
    settled.swap(next);
    if (settled == next) break;
  }
  Rewriter out(text, write);
  out.keepTo(part.begin);
  out.add(settled);
  out.skipTo(part.end);
  out.finish();
}

void renumber(std::string_view text, const LineOptions& options, const Write& write) {
  const Rules rules(options);
  renumberPart(text, listsOf(text, rules), rules, write);
}

void unnumber(std::string_view text, const LineOptions& options, const Write& write) {
  const Rules rules(options);
  const Part part = listsOf(text, rules);
  if (undoNumber(text, part, options, write)) return;
  std::size_t ownBlanks = rules.label ? rules.label->leadingBlanks().size() : 0;
  if (options.list && options.list->on(generator::Indentation)) ownBlanks += options.indentBlanks;
  Relabelling(text, part, rules).unlabel(ownBlanks, write);
}

}  // namespace kvrnstep::lines
