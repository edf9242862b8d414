#pragma once

// The kinds of list and their options, one row each. How many there are, what one is called and
// where it is kept is written here and nowhere else.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kvrnstep/kvrnstep.h"

namespace kvrnstep {

/// The kinds of list, as `Selection` numbers them.
enum ListingType : std::int16_t {
  Numbered = 0,
  Alphabetical = 1,
  RomanNumeral = 2,
  PrefixSuffix = 3
};

struct ListingTypeRow {
  const char* word;              ///< the command's --type, and the name of its picture
  std::u16string_view name;      ///< what a screen reader calls its picture
  std::u16string_view caption;   ///< of its option button
  std::u16string_view fileName;  ///< what the names of its step files begin with
  std::u16string_view filter;    ///< of the box that opens step files, and its pattern
  std::u16string_view filePattern;
};

/// In the order of their numbers.
inline constexpr auto kListingTypes = std::to_array<ListingTypeRow>({
    {"numbered", u"Numbered", u"Numbered Listing", u"Numb_", u"Numb Files (Numb*.step)",
     u"Numb*.step"},
    {"alphabetical", u"Alphabetical", u"Alphabetical Listing", u"Alpha_",
     u"Alpha Files (Alpha*.step)", u"Alpha*.step"},
    {"roman", u"Roman Numeral", u"Roman Numeral Listing", u"Roman_", u"Roman Files (Roman*.step)",
     u"Roman*.step"},
    {"prefix-suffix", u"Prefix And/Or Suffix", u"Prefix And/Or Suffix Listing", u"PreSuf_",
     u"PreSuf Files (PreSuf*.step)", u"PreSuf*.step"},
});

constexpr bool isListingType(int type) {
  return type >= 0 && static_cast<std::size_t>(type) < kListingTypes.size();
}

/// The options, as their check boxes, their settings keys and the last columns of a step file are
/// numbered.
enum ListOption : std::uint8_t {
  IndentSpacing = 0,  ///< spacing lines carry the indent, and a spacing block ends the list
  UpperCase = 1,      ///< letters and Roman numerals stay upper case
  Indentation = 2,    ///< every line begins with the indent
  AddBegEnd = 3,      ///< Beginning and Ending are added
  RightAlign = 4,     ///< labels are right-aligned to a common width
  PreSufSpace = 5,    ///< a blank is added to a prefix and a suffix that end in none
  AppendOrdinal = 6,  ///< numbers are followed by st, nd, rd, th
};

inline constexpr unsigned kEveryType = ~0U;

struct ListOptionRow {
  std::int32_t kvrnstep_list::*field;
  const char* word;  ///< the command's option
  const char* help;
  std::u16string_view caption;  ///< of its check box
  bool checkedAtFirst;          ///< so are the check box and the open defaults
  std::u16string_view code;     ///< in names of step files
  int turn;                     ///< … and its place among the codes
  unsigned types = kEveryType;  ///< a bit for each listing type that the option means something for
};

/// In the order of their numbers.
inline constexpr auto kListOptions = std::to_array<ListOptionRow>({
    {&kvrnstep_list::IndentSpacing, "--indent-spacing",
     "blank lines carry the indentation, and follow the last step too", u"Indent Spacing", true,
     u"IS", 0},
    {&kvrnstep_list::UpperCase, "--upper-case", "letters and numerals in upper case", u"UPPER CASE",
     true, u"UC", 3, 1U << Alphabetical | 1U << RomanNumeral},
    {&kvrnstep_list::Indentation, "--indentation", "indent every step", u"Indentation", true, u"I",
     1},
    {&kvrnstep_list::AddBegEnd, "--add-beg-end",
     "add beginning and ending; either option switches it on", u"Add Beg../End..", true, u"BE", 4},
    {&kvrnstep_list::RightAlign, "--right-align", "right-align the labels", u"Right Align", true,
     u"RA", 2},
    {&kvrnstep_list::PreSufSpace, "--space", "a blank after prefix and suffix",
     u"Pre../Suf..  Space", true, u"SS", 5},
    {&kvrnstep_list::AppendOrdinal, "--ordinal", "1st, 2nd, 3rd …",
     u"Append numeral ordinal 'st' 'nd' 'rd' 'th'", false, u"AO", 6, 1U << Numbered},
});

inline constexpr std::size_t kListOptionCount = kListOptions.size();

/// Whether the option means something for lists of the type.
constexpr bool appliesTo(const ListOptionRow& option, int type) {
  if (option.types == kEveryType) return true;
  return isListingType(type) && (option.types >> static_cast<unsigned>(type) & 1U) != 0;
}

}  // namespace kvrnstep
