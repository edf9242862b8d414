#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A step number as text; empty where a style cannot write the number.
namespace kvrnstep::generator {

using Numeral = std::u16string (*)(int step);

/// How the labels of a listing type are written; null for a type without labels.
Numeral numeralOf(std::int16_t selection);

/// Decimal digits without leading zeros; nothing for 0.
std::u16string numberText(int number);

/// A to Z, then the letter twice (AA, BB …), three times, and four times from 79 on. Above 104 and
/// below 1 come the characters behind Z and before A; below −64 and above 269 there is none.
std::u16string ToStepLetters(int iNumber);

/// Subtractive Roman numerals in upper case for 1 to 3999.
std::u16string ToRomanNumeral(int iNumber);

/// "st", "nd", "rd" or "th"; nothing for 0.
std::u16string_view OrdinalSuffix(int number);

}  // namespace kvrnstep::generator
