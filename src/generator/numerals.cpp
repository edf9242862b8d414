#include "generator/numerals.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "kvrnstep/list_options.hpp"
#include "text/codepage.h"
#include "text/numbers.h"

namespace kvrnstep::generator {

Numeral numeralOf(std::int16_t selection) {
  switch (selection) {
    case Numbered:
      return numberText;
    case Alphabetical:
      return ToStepLetters;
    case RomanNumeral:
      return ToRomanNumeral;
    default:
      return nullptr;
  }
}

std::u16string numberText(int number) {
  return number == 0 ? std::u16string() : text::decimal(number);
}

std::u16string ToStepLetters(int iNumber) {
  constexpr int kLetters = 26;
  const int repeats = std::clamp((iNumber + kLetters - 1) / kLetters, 1, 4);
  const int code = iNumber - kLetters * (repeats - 1) + (u'A' - 1);
  if (code < 0 || code > 255) return {};
  const char16_t letter = text::fromWindows1252(static_cast<unsigned char>(code));
  std::u16string letters(static_cast<std::size_t>(repeats), letter);
  return letters;
}

std::u16string ToRomanNumeral(int iNumber) {
  using Digits = std::array<std::u16string_view, 10>;
  static constexpr Digits kThousands{u"", u"M", u"MM", u"MMM"};
  static constexpr Digits kHundreds{u"",  u"C",  u"CC",  u"CCC",  u"CD",
                                    u"D", u"DC", u"DCC", u"DCCC", u"CM"};
  static constexpr Digits kTens{u"",  u"X",  u"XX",  u"XXX",  u"XL",
                                u"L", u"LX", u"LXX", u"LXXX", u"XC"};
  static constexpr Digits kOnes{u"",  u"I",  u"II",  u"III",  u"IV",
                                u"V", u"VI", u"VII", u"VIII", u"IX"};
  if (iNumber < 1 || iNumber > 3999) return {};
  const auto number = static_cast<std::size_t>(iNumber);
  std::u16string numeral(kThousands[number / 1000]);
  numeral += kHundreds[number / 100 % 10];
  numeral += kTens[number / 10 % 10];
  numeral += kOnes[number % 10];
  return numeral;
}

std::u16string_view OrdinalSuffix(int number) {
  static constexpr std::array<std::u16string_view, 4> kByLastDigit{u"th", u"st", u"nd", u"rd"};
  if (number == 0) return {};
  const auto lastTwo = static_cast<std::size_t>(std::abs(number % 100));
  const std::size_t last = lastTwo / 10 == 1 ? 0 : lastTwo % 10;  // 11th, 12th, 13th
  return last < kByLastDigit.size() ? kByLastDigit[last] : u"th";
}

}  // namespace kvrnstep::generator
