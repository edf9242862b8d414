#include "generator/numerals.h"

#include <array>
#include <string_view>

#include "text/codepage.h"
#include "text/numbers.h"

namespace kvrnstep::generator {

std::u16string numberText(int number) {
  return number == 0 ? u"" : text::decimal(number);
}

std::u16string ToStepLetters(int iNumber) {
  std::size_t repeats = 1;
  int code = iNumber + 64;
  if (iNumber >= 79) {
    repeats = 4;
    code = iNumber - 14;
  } else if (iNumber >= 53) {
    repeats = 3;
    code = iNumber + 12;
  } else if (iNumber >= 27) {
    repeats = 2;
    code = iNumber + 38;
  }
  if (code < 0 || code > 255) return {};
  std::u16string letters(repeats, text::fromWindows1252(static_cast<unsigned char>(code)));
  return letters;
}

std::u16string ToRomanNumeral(int iNumber) {
  if (iNumber < 1 || iNumber > 3999) return {};
  static constexpr std::array<std::array<std::u16string_view, 10>, 4> kDigits{{
      {u"", u"I", u"II", u"III", u"IV", u"V", u"VI", u"VII", u"VIII", u"IX"},
      {u"", u"X", u"XX", u"XXX", u"XL", u"L", u"LX", u"LXX", u"LXXX", u"XC"},
      {u"", u"C", u"CC", u"CCC", u"CD", u"D", u"DC", u"DCC", u"DCCC", u"CM"},
      {u"", u"M", u"MM", u"MMM"},
  }};
  std::u16string roman;
  for (std::size_t position = 0; iNumber > 0; ++position, iNumber /= 10) {
    roman.insert(0, kDigits.at(position).at(static_cast<std::size_t>(iNumber % 10)));
  }
  return roman;
}

std::u16string OrdinalSuffix(int number) {
  if (number == 0) return {};
  const int lastTwo = number < 0 ? -(number % 100) : number % 100;
  if (lastTwo >= 11 && lastTwo <= 13) return u"th";
  switch (lastTwo % 10) {
    case 1:
      return u"st";
    case 2:
      return u"nd";
    case 3:
      return u"rd";
    default:
      return u"th";
  }
}

}  // namespace kvrnstep::generator
