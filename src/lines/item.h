#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lines/labels.h"

namespace kvrnstep::lines {

/// What the labels of one list have in common.
enum class LabelKind : std::uint8_t { Decimal, Small, Capital, Described };

/// What a label may stand for: letters or a Roman numeral, or else one number. -1 is none.
struct Numbers {
  std::int64_t plain = -1;
  std::int64_t roman = -1;

  [[nodiscard]] bool has(std::int64_t number) const {
    return number >= 0 && (plain == number || roman == number);
  }
};

/// The label that a line begins with.
struct Item {
  LabelKind kind = LabelKind::Decimal;
  char delimiter = '.';
  std::string_view label;
  Numbers readings;       ///< of labels that are not decimal
  std::size_t width = 0;  ///< of the label, with the blanks that align it behind a prefix
  std::size_t end = 0;    ///< place behind the delimiter, or the visible part of a suffix
  std::size_t depth = 0;  ///< column of the beginning

  /// Decimal labels are read only when they are needed, because most are not.
  [[nodiscard]] Numbers numbers() const {
    return kind == LabelKind::Decimal ? Numbers{numberOf(Numbered, label), -1} : readings;
  }
  [[nodiscard]] bool hasLeadingZero() const { return label.size() > 1 && label.front() == '0'; }
};

}  // namespace kvrnstep::lines
