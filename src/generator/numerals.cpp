#include "generator/numerals.h"

#include <array>
#include <string_view>

#include "text/codepage.h"
#include "text/numbers.h"

namespace kvrnstep::generator {

namespace {

template <class Append>
std::u16string built(Append append, int number) {
  TextBuilder text;
  append(text, number);
  return text.take();
}

ShortPiece ordinalSuffix(int number) {
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

}  // namespace

void appendNumber(TextBuilder& text, int number) {
  constexpr int kTwoDigits = 100;
  if (number < 0 || number >= kTwoDigits) {
    text.append(text::decimal(number));
    return;
  }
  if (number >= 10) text.append(static_cast<char16_t>(u'0' + number / 10));
  text.append(static_cast<char16_t>(u'0' + number % 10));
}

void appendLetters(TextBuilder& text, int number) {
  std::size_t repeats = 1;
  int code = number + 64;
  if (number >= 79) {
    repeats = 4;
    code = number - 14;
  } else if (number >= 53) {
    repeats = 3;
    code = number + 12;
  } else if (number >= 27) {
    repeats = 2;
    code = number + 38;
  }
  if (code < 0 || code > 255) return;
  text.append(ShortPiece(repeats, text::fromWindows1252(static_cast<unsigned char>(code))));
}

void appendRoman(TextBuilder& text, int number) {
  if (number < 1 || number > 3999) return;
  using Digits = std::array<ShortPiece, 10>;
  static constexpr Digits kThousands{u"", u"M", u"MM", u"MMM", u"", u"", u"", u"", u"", u""};
  static constexpr Digits kHundreds{u"",  u"C",  u"CC",  u"CCC",  u"CD",
                                    u"D", u"DC", u"DCC", u"DCCC", u"CM"};
  static constexpr Digits kTens{u"",  u"X",  u"XX",  u"XXX",  u"XL",
                                u"L", u"LX", u"LXX", u"LXXX", u"XC"};
  static constexpr Digits kOnes{u"",  u"I",  u"II",  u"III",  u"IV",
                                u"V", u"VI", u"VII", u"VIII", u"IX"};
  const auto value = static_cast<std::size_t>(number);
  if (number >= 100) {
    text.append(kThousands.at(value / 1000));
    text.append(kHundreds.at(value / 100 % 10));
  }
  text.append(kTens.at(value / 10 % 10));
  text.append(kOnes.at(value % 10));
}

void appendOrdinal(TextBuilder& text, int number) {
  if (number != 0) text.append(ordinalSuffix(number));
}

std::u16string numberText(int number) {
  return number == 0 ? u"" : built(appendNumber, number);
}

std::u16string ToStepLetters(int iNumber) {
  return built(appendLetters, iNumber);
}

std::u16string ToRomanNumeral(int iNumber) {
  return built(appendRoman, iNumber);
}

std::u16string OrdinalSuffix(int number) {
  return built(appendOrdinal, number);
}

}  // namespace kvrnstep::generator
