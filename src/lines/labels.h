#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kvrnstep/list_options.hpp"

/// Labels of lines, as bytes and without an end: z is followed by aa, bb and so on, zz by aaa.
namespace kvrnstep::lines {

/// Longer numbers fit no integer.
inline constexpr std::size_t kMostDigits = 18;

/// How the labels of one list are written.
struct LabelStyle {
  ListingType type = Numbered;
  bool upperCase = false;  ///< of letters and Roman numerals
  bool ordinal = false;    ///< 1st, 2nd …; of decimals
  std::size_t digits = 0;  ///< of decimals, which get zeros in front up to them
};

/// Numbers of lines, one after the other.
struct Sequence {
  std::int64_t first = 1;
  std::int64_t step = 1;

  /// A number that is too large or too small for any label becomes the largest or smallest possible
  /// one.
  [[nodiscard]] std::int64_t at(std::size_t index) const;
};

/// Whether there is such a label: decimals from 0 on, letters from 1 on, Roman numerals of 1 to
/// 3999.
bool labelExists(ListingType type, std::int64_t number);
/// The message that a line cannot have its label.
std::string whyNoLabel(ListingType type, std::int64_t number, std::size_t line);

/// Characters of a label that exists, without those of an ordinal.
std::size_t labelWidth(const LabelStyle& style, std::int64_t number);
/// The widest of so many labels, at least one.
std::size_t widestLabel(const LabelStyle& style, const Sequence& numbers, std::size_t count);

/// Adds a label that exists to the text.
void appendLabel(std::string& text, const LabelStyle& style, std::int64_t number);

/// The number that a label stands for; -1 where it is none of the kind.
/// @param label digits only, small letters only or capital letters only
std::int64_t numberOf(ListingType type, std::string_view label);

/// Characters of the label that the text begins with, the longest one of the style, with those of
/// an ordinal; 0 for none.
/// @param number what it stands for
std::size_t findLabel(const LabelStyle& style, std::string_view text, std::int64_t& number);

}  // namespace kvrnstep::lines
