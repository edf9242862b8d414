#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "lines/line_reader.h"
#include "lines/rules.h"

namespace kvrnstep::lines {

/// What is known about labels that may be letters or Roman numerals.
enum class Reading : std::uint8_t { Either, Letters, Roman };

/// One list of a text, as far as it has been read.
struct List {
  std::size_t number = 0;  ///< running number of the list, in the order of first items
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

  [[nodiscard]] bool hasStyleOf(const Item& item) const {
    return kind == item.kind && delimiter == item.delimiter;
  }
  /// The last column of the list itself; a line that begins behind it is inside the list.
  [[nodiscard]] std::size_t depth() const { return alignment == Alignment::Right ? end - 1 : left; }
  /// Whether it has one item only, with letters. Such an item counts as a list only if it has the
  /// first label.
  [[nodiscard]] bool isSingle(const Rules& rules) const {
    return kind != LabelKind::Decimal && rules.needsSibling && count == 1;
  }
  [[nodiscard]] bool isRoman() const;
};

/// The lists of a part, item by item.
class Outline {
 public:
  /// @param ended is called with every list when it ends
  Outline(std::string_view text, const Part& part, const Rules& rules,
          std::function<void(const List&)> ended)
      : reader_(text, part, rules.label), rules_(rules), ended_(std::move(ended)) {}

  /// Goes on to the next item; false at the end, where all lists have ended.
  bool next();

  [[nodiscard]] const TextLine& line() const { return reader_.line(); }
  [[nodiscard]] const Item& item() const { return reader_.item(); }
  /// The list that the item belongs to.
  [[nodiscard]] const List& list() const { return open_.back(); }
  /// The number of lists around that one.
  [[nodiscard]] std::size_t level() const { return open_.size() - 1; }
  /// Whether labels of other widths could make other lists. Then the lists are known only when all
  /// labels have been written.
  [[nodiscard]] bool dependsOnWidths() const { return dependsOnWidths_; }

 private:
  void takeItem();
  void takeOther();
  template <class Belongs>
  [[nodiscard]] std::size_t innermost(const Item& item, Belongs belongs) const;
  [[nodiscard]] std::size_t levelOf(const Item& item) const;
  [[nodiscard]] bool endsInLine(const List& list, const Item& item) const;
  [[nodiscard]] bool beginsAnew(const List& list, const Item& item) const;
  [[nodiscard]] bool isNext(const List& list, const Numbers& numbers) const;
  [[nodiscard]] bool beginsRight(const List& list) const;
  [[nodiscard]] bool isConfirmed(const List& list) const;
  [[nodiscard]] bool isOtherText(const List& list) const;
  void open(const Item& item);
  void join(List& list, const Item& item);
  void watchWidths(const Item& item);
  void endFrom(std::size_t level);
  void endAt(std::size_t depth);

  LineReader reader_;
  const Rules& rules_;
  std::function<void(const List&)> ended_;
  std::vector<List> open_;  ///< the outer ones first
  std::size_t lists_ = 0;
  bool dependsOnWidths_ = false;
};

}  // namespace kvrnstep::lines
