#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "lines/item.h"
#include "lines/labels.h"
#include "lines/line_reader.h"

namespace kvrnstep::lines {

/// What the options mean for where lists begin and end.
struct OutlineRules {
  Sequence numbers;           ///< of the first list
  bool keepStart = false;     ///< lists begin with the labels that they have
  bool needsSibling = true;   ///< of labels that are not decimal: a single one is no list
  bool mayAlign = true;       ///< labels may be filled up with blanks on their left
  bool alwaysAligns = false;  ///< … and are
};

/// Whether the labels of a list begin in one column or end in one. One label does not tell.
enum class Alignment : std::uint8_t { Unknown, Left, Right };

/// What labels of letters are, as far as they tell.
enum class Reading : std::uint8_t { Either, Letters, Roman };

/// One list of a text, as far as it has been read.
struct List {
  std::size_t number = 0;     ///< of all lists, in the order of their first items
  std::size_t undecided = 0;  ///< of those whose labels are not decimal, likewise
  LabelKind kind = LabelKind::Decimal;
  char delimiter = '.';
  Alignment alignment = Alignment::Unknown;
  Reading reading = Reading::Either;
  bool behindBlankLine = false;
  bool separated = false;  ///< by a list of another style or by code at its depth
  std::size_t left = 0;    ///< the smallest column that an item begins in
  std::size_t end = 0;     ///< the column behind the labels, unless they are aligned at their left
  std::size_t width = 0;   ///< of the widest label, with blanks that align it behind a prefix
  std::size_t count = 0;   ///< of its items
  Numbers first;

  /// The last column that is the list's own; what begins behind it is in the list.
  [[nodiscard]] std::size_t depth() const { return alignment == Alignment::Right ? end - 1 : left; }
  /// Whether it has one item, by a letter or two. That is no list unless it is the first label.
  [[nodiscard]] bool isSingle(const OutlineRules& rules) const;
  [[nodiscard]] bool isRoman() const;
};

/// The lists that are open at a place of a text.
class Outline {
 public:
  /// @param ended is told of every list when it ends
  Outline(const OutlineRules& rules, std::function<void(const List&)> ended)
      : rules_(rules), ended_(std::move(ended)) {}

  // What the text holds, line by line.
  /// @return the list that it is of
  const List& item(const Item& item);
  /// A line that is no item.
  void other(const LineReader& line);
  void endOfText() { endFrom(0); }

  /// How many lists there are around the one of the last item.
  [[nodiscard]] std::size_t level() const { return open_.size() - 1; }
  /// Whether labels of other widths could make other lists: then nothing is settled before all
  /// labels have been written.
  [[nodiscard]] bool dependsOnWidths() const { return dependsOnWidths_; }

 private:
  using Belongs = bool (Outline::*)(const List&, const Item&) const;
  [[nodiscard]] std::size_t listOf(const Item& item) const;
  [[nodiscard]] std::size_t search(const Item& item, Belongs belongs) const;
  [[nodiscard]] bool beginsInLine(const List& list, const Item& item) const;
  [[nodiscard]] bool endsInLine(const List& list, const Item& item) const;
  [[nodiscard]] bool isNext(const List& list, const Numbers& numbers) const;
  [[nodiscard]] bool isOtherText(const List& list) const;
  [[nodiscard]] bool isConfirmed(const List& list) const;
  List& open(const Item& item);
  void join(List& list, const Item& item);
  void watchWidths(const Item& item);
  void endFrom(std::size_t level);
  void endAt(std::size_t depth);

  OutlineRules rules_;
  std::function<void(const List&)> ended_;
  std::vector<List> open_;  ///< the outer ones first
  std::size_t lists_ = 0;
  std::size_t undecided_ = 0;
  bool behindBlankLine_ = false;
  bool dependsOnWidths_ = false;
};

}  // namespace kvrnstep::lines
