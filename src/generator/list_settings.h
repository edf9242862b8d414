#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kvrnstep::generator {

/// The kinds of list, as `Selection` numbers them.
enum ListingType : std::int16_t {
  Numbered = 0,
  Alphabetical = 1,
  RomanNumeral = 2,
  PrefixSuffix = 3
};

/// The options, as their check boxes are numbered.
enum ListOption : std::uint8_t {
  IndentSpacing = 0,  ///< spacing lines carry the indent, and a spacing block ends the list
  UpperCase = 1,      ///< letters and Roman numerals stay upper case
  Indentation = 2,    ///< every line begins with the indent
  AddBegEnd = 3,      ///< Beginning and Ending are added
  RightAlign = 4,     ///< labels are right-aligned to a common width
  PreSufSpace = 5,    ///< a blank is added to a prefix and a suffix that end in none
  AppendOrdinal = 6,  ///< numbers are followed by st, nd, rd, th
};

/// One description of a step list: what the dialog shows, files store, and the generator writes
/// out as text.
struct ListSettings {
  std::int16_t Selection = Numbered;
  std::array<std::int16_t, 7> Option{};  ///< 1 is on, anything else off
  std::u16string Prefix;                 ///< may hold macros
  std::u16string Suffix;                 ///< may hold macros
  std::int16_t Start = 1;                ///< number of the first step
  std::int16_t Count = 3;                ///< number of the last step; 0: not given
  std::int16_t LineSpacing = 0;          ///< blank lines between two steps
  std::u16string Beginning;
  std::u16string Ending;

  [[nodiscard]] bool on(ListOption option) const { return Option.at(option) == 1; }

  bool operator==(const ListSettings&) const = default;
};

}  // namespace kvrnstep::generator
