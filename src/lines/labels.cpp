#include "lines/labels.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "generator/numerals.h"
#include "lines/text_lines.h"
#include "text/codepage.h"

namespace kvrnstep::lines {

namespace {

constexpr std::int64_t kLetters = 26;
constexpr std::int64_t kLastNumber = 999'999'999'999'999'999;
constexpr std::size_t kLongestRoman = 15;
constexpr char kCaseBit = 'a' - 'A';

std::int64_t firstOf(ListingType type) {
  return type == Numbered ? 0 : 1;
}

std::int64_t lastOf(ListingType type) {
  return type == RomanNumeral ? 3999 : kLastNumber;
}

std::string romanOf(std::int64_t number, bool upperCase) {
  std::string numeral = text::toUtf8(generator::ToRomanNumeral(static_cast<int>(number)));
  for (char& c : numeral) c = static_cast<char>(upperCase ? c : c + kCaseBit);
  return numeral;
}

std::int64_t numberOfDigits(std::string_view label) {
  std::int64_t number = -1;
  if (label.size() <= kMostDigits)
    std::from_chars(label.data(), label.data() + label.size(), number);
  return number;
}

std::int64_t numberOfLetters(std::string_view label) {
  if (behindRun(label, label.front(), label.front()) < label.size()) return -1;
  return static_cast<std::int64_t>(label.size() - 1) * kLetters + (label.front() & ~kCaseBit) -
         'A' + 1;
}

std::int64_t numberOfRoman(std::string_view label) {
  constexpr std::string_view kSymbols = "IVXLCDM";
  constexpr std::int64_t kValues[] = {1, 5, 10, 50, 100, 500, 1000};
  if (label.size() > kLongestRoman) return -1;
  std::int64_t number = 0;
  std::int64_t before = 0;
  for (const char c : label) {
    const std::size_t symbol = kSymbols.find(static_cast<char>(c & ~kCaseBit));
    if (symbol == std::string_view::npos) return -1;
    // A smaller symbol before a larger one is subtracted, but it has been added already.
    number += kValues[symbol] - (before < kValues[symbol] ? 2 * before : 0);
    before = kValues[symbol];
  }
  const bool upperCase = label.front() < 'a';
  return labelExists(RomanNumeral, number) && romanOf(number, upperCase) == label ? number : -1;
}

}  // namespace

std::int64_t Sequence::at(std::size_t index) const {
  std::int64_t number = 0;
  if (__builtin_mul_overflow(index, step, &number) ||
      __builtin_add_overflow(number, first, &number)) {
    return step < 0 ? -kLastNumber : std::numeric_limits<std::int64_t>::max();
  }
  return number;
}

bool labelExists(ListingType type, std::int64_t number) {
  return number >= firstOf(type) && number <= lastOf(type);
}

std::string whyNoLabel(ListingType type, std::int64_t number, std::size_t line) {
  const char* const what = type == RomanNumeral   ? "Roman numeral"
                           : type == Alphabetical ? "letter"
                                                  : "label";
  return "line " + std::to_string(line) + ": there is no " + what + " for " +
         std::to_string(number) + ", they go from " + std::to_string(firstOf(type)) + " to " +
         std::to_string(lastOf(type));
}

std::size_t labelWidth(const LabelStyle& style, std::int64_t number) {
  if (style.type == RomanNumeral) return romanOf(number, true).size();
  if (style.type == Alphabetical) {
    return static_cast<std::size_t>((number + kLetters - 1) / kLetters);
  }
  std::size_t digits = 1;
  for (std::int64_t power = 10; digits < kMostDigits && number >= power; power *= 10) ++digits;
  return std::max(style.digits, digits);
}

std::size_t widestLabel(const LabelStyle& style, const Sequence& numbers, std::size_t count) {
  const auto width = [&](std::size_t index) {
    const std::int64_t number = numbers.at(index);
    return labelExists(style.type, number) ? labelWidth(style, number) : 0;
  };
  std::size_t widest = std::max(width(0), width(count - 1));
  // Other labels only grow with their number.
  if (style.type != RomanNumeral) return widest;
  for (std::size_t i = 1; i < count && width(i) > 0; ++i) widest = std::max(widest, width(i));
  return widest;
}

void appendLabel(std::string& text, const LabelStyle& style, std::int64_t number) {
  if (style.type == RomanNumeral) {
    text += romanOf(number, style.upperCase);
  } else if (style.type == Alphabetical) {
    text.append(labelWidth(style, number),
                static_cast<char>((style.upperCase ? 'A' : 'a') + (number - 1) % kLetters));
  } else {
    std::array<char, kMostDigits + 1> room{};
    char* const end = room.data() + room.size();
    const std::string_view digits(room.data(), std::to_chars(room.data(), end, number).ptr);
    if (digits.size() < style.digits) text.append(style.digits - digits.size(), '0');
    text += digits;
    if (!style.ordinal || number == 0) return;
    // The last two digits decide. 100 is added, because 100 has an ordinal and 0 has none.
    text += text::toUtf8(generator::OrdinalSuffix(static_cast<int>(number % 100) + 100));
  }
}

std::int64_t numberOf(ListingType type, std::string_view label) {
  if (type == Numbered) return numberOfDigits(label);
  return type == Alphabetical ? numberOfLetters(label) : numberOfRoman(label);
}

std::size_t findLabel(const LabelStyle& style, std::string_view text, std::int64_t& number) {
  std::size_t length = style.type == Numbered ? behindRun(text, '0', '9')
                       : style.upperCase      ? behindRun(text, 'A', 'Z')
                                              : behindRun(text, 'a', 'z');
  if (style.type == Alphabetical && length > 0) {
    length = behindRun(text, text.front(), text.front());
  }
  while (length > 0 && (number = numberOf(style.type, text.substr(0, length))) < 0) --length;
  if (length == 0 || !style.ordinal || number == 0) return length;
  // The ordinal may be a wrong one, because the user may have changed only the number.
  for (const std::string_view ordinal : {"st", "nd", "rd", "th"}) {
    if (text.substr(length).starts_with(ordinal)) return length + ordinal.size();
  }
  return 0;
}

}  // namespace kvrnstep::lines
