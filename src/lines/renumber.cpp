#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "lines/line_reader.h"
#include "lines/lines.h"
#include "lines/outline.h"
#include "lines/part.h"
#include "lines/rewriter.h"

namespace kvrnstep::lines {

namespace {

/// What labels are looked for, and what the options say about them.
struct Search {
  explicit Search(const LineOptions& given) : options(given) {
    rules.numbers = {options.start, options.step};
    rules.keepStart = options.keepStart;
    if (!options.list) return;
    label.emplace(*options.list, options.digits);
    const bool inFront = label->beginsWithLabel();
    alignsBehindPrefix = label->rightAligned() && !inFront;
    rules.mayAlign = rules.alwaysAligns = label->rightAligned() && inFront;
    const auto type = options.list->Selection;
    rules.needsSibling =
        inFront && (type == generator::Alphabetical || type == generator::RomanNumeral);
  }

  [[nodiscard]] const LineLabel* description() const { return label ? &*label : nullptr; }

  const LineOptions& options;
  std::optional<LineLabel> label;  ///< nothing: all labels that there are
  OutlineRules rules;
  bool alignsBehindPrefix = false;
};

/// How one list is to be labelled.
struct ListPlan {
  bool isList = false;  ///< and does not only look like one
  LabelStyle style;     ///< of labels that nobody has described
  Sequence numbers;
  // Of aligned labels; the width is 0 where none are.
  std::size_t width = 0;  ///< what they are filled up to with blanks
  std::size_t left = 0;   ///< the column where the widest one begins
};

/// Where the blanks in front of an item reach a column, and how many are missing up to it.
struct Reach {
  std::size_t place = 0;
  std::size_t missing = 0;
};

Reach reach(std::string_view text, const Item& item, std::size_t column) {
  std::size_t reached = 0;
  std::size_t place = item.line;
  for (; place < item.begin; ++place) {
    const std::size_t next = columnBehind(text[place], reached);
    if (next > column) break;
    reached = next;
  }
  return {place, column - reached};
}

/// Changes the labels of a text. What has to be known of its lists before the first one can be
/// changed is found at the beginning. Most lists need nothing: their labels are decimal and aligned
/// at their left.
class Relabelling {
 public:
  Relabelling(std::string_view text, const Search& search) : text_(text), search_(search) {
    Outline outline(search.rules, [this](const List& list) { note(list); });
    read(outline, [](const LineReader&, const List&) {});
    dependsOnWidths_ = outline.dependsOnWidths();
    std::ranges::sort(aligned_, {}, &AlignedList::number);
  }

  /// As the outline of the text knows it.
  [[nodiscard]] bool dependsOnWidths() const { return dependsOnWidths_; }

  /// Writes the labels anew.
  /// @throws NoLabel before anything is written
  void relabel(const Write& write) {
    const Write nobody = [](std::string_view) {};
    for (const bool trial : {true, false}) {
      if (trial && allLabelsExist_) continue;
      Rewriter out(text_, trial ? nobody : write);
      forEachItem([&](const LineReader& reader, const ListPlan& plan, std::size_t index) {
        rewrite(out, reader, plan, plan.numbers.at(index));
      });
      out.finish();
    }
  }

  /// Takes the labels away.
  /// @param ownBlanks blanks in front of an item that belong to its label
  void unlabel(std::size_t ownBlanks, const Write& write) {
    Rewriter out(text_, write);
    forEachItem([&](const LineReader& reader, const ListPlan& plan, std::size_t /*index*/) {
      const Item& item = reader.item();
      const bool aligned = plan.width > 0 && !search_.alignsBehindPrefix;
      const Reach blanks = reach(text_, item, aligned ? plan.left : item.depth);
      out.keepTo(std::max(item.line, blanks.place - std::min(blanks.place, ownBlanks)));
      out.add(std::string(blanks.missing, ' '));
      out.skipTo(behindBlanks(text_, item.end));
    });
    out.finish();
  }

 private:
  struct AlignedList {
    std::size_t number = 0;  ///< of all lists
    std::size_t left = 0;
    std::size_t width = 0;
    std::size_t count = 0;
  };
  enum Fact : std::uint8_t { IsList = 1, IsRoman = 2, IsSingle = 4 };

  void note(const List& list) {
    if (list.kind != LabelKind::Decimal) {
      const bool single = list.isSingle(search_.rules);
      const int isList = !single || list.first.has(1) ? IsList : 0;
      facts_.resize(std::max(facts_.size(), list.undecided + 1));
      facts_[list.undecided] = static_cast<std::uint8_t>(isList | (list.isRoman() ? IsRoman : 0) |
                                                         (single ? IsSingle : 0));
    }
    if (list.alignment == Alignment::Right) {
      aligned_.push_back({list.number, list.left, list.end - list.left, list.count});
    } else if (search_.alignsBehindPrefix) {
      aligned_.push_back({list.number, list.left, list.width, list.count});
    }
    allLabelsExist_ = allLabelsExist_ && allExist(list);
  }

  /// Whether there are labels for all numbers that its items may get.
  [[nodiscard]] bool allExist(const List& list) const {
    const auto least = list.kind == LabelKind::Decimal ? Numerals::Decimal : Numerals::Roman;
    const auto exists = [&](std::int64_t number) {
      return search_.label ? !search_.label->missing(number) : labelExists(least, number);
    };
    const auto allFrom = [&](std::int64_t first) {
      return exists(first) && exists(Sequence{first, search_.options.step}.at(list.count - 1));
    };
    if (!search_.options.keepStart) return allFrom(1) && allFrom(search_.options.start);
    return (list.first.plain < 0 || allFrom(list.first.plain)) &&
           (list.first.roman < 0 || allFrom(list.first.roman));
  }

  /// Shows the text to the outline, and calls `act` at each item.
  template <class Act>
  void read(Outline& outline, Act act) {
    LineReader reader(text_, search_.description());
    while (reader.next()) {
      if (reader.kind() == LineKind::Item) {
        act(reader, outline.item(reader.item()));
      } else {
        outline.other(reader);
      }
    }
    outline.endOfText();
  }

  /// Calls `act` with the reader at each item of a list, the list's plan, and the item's place in
  /// the list.
  template <class Act>
  void forEachItem(Act act) {
    Outline outline(search_.rules, {});
    std::vector<ListPlan> plans;
    hadFirst_ = false;
    nextAligned_ = 0;
    read(outline, [&](const LineReader& reader, const List& list) {
      plans.resize(outline.level() + 1);
      if (list.count == 1) plans.back() = nextPlan(list, reader.item());
      if (plans.back().isList) act(reader, plans.back(), list.count - 1);
    });
  }

  /// The plan of the next list; lists are asked for in their order.
  ListPlan nextPlan(const List& list, const Item& first) {
    const bool decimal = list.kind == LabelKind::Decimal;
    const unsigned facts = decimal ? unsigned{IsList} : facts_[list.undecided];
    const bool roman = (facts & IsRoman) != 0;
    ListPlan plan;
    plan.isList = (facts & IsList) != 0;
    if (!decimal) plan.style.numerals = roman ? Numerals::Roman : Numerals::Letters;
    plan.style.upperCase = list.kind == LabelKind::Capital;
    plan.style.digits = search_.options.digits;
    plan.numbers.step = search_.options.step;
    if (search_.options.keepStart) {
      plan.numbers.first = roman ? list.first.roman : list.first.plain;
    } else if (!hadFirst_ && (facts & IsSingle) == 0) {
      plan.numbers.first = search_.options.start;
    }
    // Zeros that the first label will not have would not be seen the next time.
    const bool keepsZero = labelWidth({}, plan.numbers.first) < first.label.size();
    if (plan.style.digits == 0 && first.hasLeadingZero() && keepsZero) {
      plan.style.digits = first.label.size();
    }
    hadFirst_ = hadFirst_ || (facts & (IsList | IsSingle)) == IsList;
    if (nextAligned_ < aligned_.size() && aligned_[nextAligned_].number == list.number) {
      align(plan, aligned_[nextAligned_++]);
    }
    return plan;
  }

  /// Labels that have become wider than the others move all to the right.
  void align(ListPlan& plan, const AlignedList& list) const {
    const std::size_t widest = search_.label ? search_.label->alignedWidth(plan.numbers, list.count)
                                             : widestLabel(plan.style, plan.numbers, list.count);
    plan.left = list.left;
    plan.width = std::max(list.width, widest);
  }

  void rewrite(Rewriter& out, const LineReader& reader, const ListPlan& plan, std::int64_t number) {
    const Item& item = reader.item();
    setLabel(reader, plan, number);
    const std::size_t column = columnOf(item, plan, number);
    if (column != item.depth) {
      const Reach blanks = reach(text_, item, column);
      out.keepTo(blanks.place);
      out.add(std::string(blanks.missing, ' '));
      out.skipTo(item.begin);
    }
    out.keepTo(item.begin);
    out.add(label_);
    out.skipTo(search_.label ? item.end : item.begin + item.label.size());
  }

  void setLabel(const LineReader& reader, const ListPlan& plan, std::int64_t number) {
    const auto missing = search_.label ? search_.label->missing(number)
                         : labelExists(plan.style.numerals, number)
                             ? std::nullopt
                             : std::optional(plan.style.numerals);
    if (missing)
      throw NoLabel(whyNoLabel(*missing, number, search_.options.linesAbove + reader.number()));
    label_.clear();
    if (!search_.label) return appendLabel(label_, plan.style, number);
    search_.label->append(label_, number, search_.alignsBehindPrefix ? plan.width : 0);
    label_.erase(0, search_.label->leadingBlanks().size());
    label_.erase(label_.find_last_not_of(" \t") + 1);
  }

  /// Where the label begins, blanks that align it behind a prefix aside.
  [[nodiscard]] std::size_t columnOf(const Item& item, const ListPlan& plan,
                                     std::int64_t number) const {
    if (plan.width == 0 || search_.alignsBehindPrefix) return item.depth;
    const std::size_t width =
        search_.label ? search_.label->alignedWidth({number, 0}, 1) : label_.size();
    return plan.left + plan.width - std::min(plan.width, width);
  }

  std::string_view text_;
  const Search& search_;
  bool allLabelsExist_ = true;
  bool dependsOnWidths_ = false;
  std::deque<std::uint8_t> facts_;   ///< of lists whose labels are not decimal, in order
  std::deque<AlignedList> aligned_;  ///< in order
  std::size_t nextAligned_ = 0;
  bool hadFirst_ = false;
  std::string label_;
};

}  // namespace

void renumber(std::string_view text, const LineOptions& options, const Write& write) {
  if (options.line > 0)
    return changePart(listsAround(text, options), renumber, text, options, write);
  const Search search(options);
  if (search.label && !search.label->numbered()) return write(text);
  Relabelling relabelling(text, search);
  if (!relabelling.dependsOnWidths()) return relabelling.relabel(write);
  // Which labels are in line with which may be seen only when all are as wide as they will be.
  constexpr int kMostRounds = 16;
  std::string settled(text);
  for (int round = 0; round < kMostRounds; ++round) {
    std::string next;
    next.reserve(settled.size() + settled.size() / 16);
    Relabelling(settled, search).relabel([&](std::string_view block) { next += block; });
    settled.swap(next);
    if (settled == next) break;
  }
  write(settled);
}

void unnumber(std::string_view text, const LineOptions& options, const Write& write) {
  if (options.line > 0)
    return changePart(listsAround(text, options), unnumber, text, options, write);
  if (undoNumber(text, options, write)) return;
  const Search search(options);
  std::size_t ownBlanks = search.label ? search.label->leadingBlanks().size() : 0;
  if (options.list && options.list->on(generator::Indentation)) ownBlanks += options.indentBlanks;
  Relabelling(text, search).unlabel(ownBlanks, write);
}

}  // namespace kvrnstep::lines
