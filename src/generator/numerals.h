#pragma once

#include <string>
#include <string_view>

/// A step number as text. What cannot be written in a style is the empty text.
namespace kvrnstep::generator {

/// Decimal digits without leading zeros; nothing for 0.
std::u16string numberText(int number);

/// A to Z, then the letter twice (AA, BB …), three times, and four times from 79 on. Numbers that
/// lead past Z give the characters that follow it; there are none below −64 and above 269.
std::u16string ToStepLetters(int iNumber);

/// Subtractive Roman numerals in upper case for 1 to 3999.
std::u16string ToRomanNumeral(int iNumber);

/// "st", "nd", "rd" or "th"; nothing for 0.
std::u16string_view OrdinalSuffix(int number);

}  // namespace kvrnstep::generator
