#include "lines/labels.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "generator/numerals.h"

namespace kvrnstep::lines {

namespace {

constexpr std::int64_t kLetters = 26;
constexpr std::int64_t kLastNumber = 999'999'999'999'999'999;
constexpr std::int64_t kLastRoman = 3999;
constexpr std::size_t kLongestRoman = 15;
constexpr char kCaseBit = 'a' - 'A';

void appendOrdinal(std::string& text, std::int64_t number) {
  if (number == 0) return;
  // The last two digits decide, and 0 is another case than 100.
  for (const char16_t c : generator::OrdinalSuffix(static_cast<int>(number % 100) + 100)) {
    text += static_cast<char>(c);
  }
}

std::string romanOf(std::int64_t number, bool upperCase) {
  std::string numeral;
  for (const char16_t c : generator::ToRomanNumeral(static_cast<int>(number))) {
    numeral += static_cast<char>(upperCase ? c : c + kCaseBit);
  }
  return numeral;
}

std::int64_t numberOfDigits(std::string_view label) {
  if (label.size() > kMostDigits) return -1;
  std::int64_t number = -1;
  const auto [end, error] = std::from_chars(label.data(), label.data() + label.size(), number);
  return error == std::errc() && end == label.data() + label.size() && number >= 0 ? number : -1;
}

std::int64_t numberOfLetters(std::string_view label) {
  if (label.find_first_not_of(label.front()) != std::string_view::npos) return -1;
  const std::int64_t letter = (label.front() & ~kCaseBit) - 'A';
  if (letter < 0 || letter >= kLetters) return -1;
  return static_cast<std::int64_t>(label.size() - 1) * kLetters + letter + 1;
}

std::int64_t numberOfRoman(std::string_view label) {
  constexpr std::string_view kSymbols = "IVXLCDM";
  constexpr std::int64_t kValues[] = {1, 5, 10, 50, 100, 500, 1000};
  if (label.size() > kLongestRoman) return -1;
  const bool upperCase = label.front() < 'a';
  std::int64_t number = 0;
  std::int64_t before = 0;
  for (const char c : label) {
    const std::size_t symbol = kSymbols.find(static_cast<char>(upperCase ? c : c - kCaseBit));
    if (symbol == std::string_view::npos) return -1;
    // A smaller one in front of a larger one has been added, but is to be taken away.
    number += kValues[symbol] - (before < kValues[symbol] ? 2 * before : 0);
    before = kValues[symbol];
  }
  return labelExists(Numerals::Roman, number) && romanOf(number, upperCase) == label ? number : -1;
}

/// Characters at the beginning of the text that are those of labels, and in one case.
std::size_t labelCharacters(const LabelStyle& style, std::string_view text) {
  if (style.numerals == Numerals::Decimal) {
    return std::min(text.find_first_not_of("0123456789"), text.size());
  }
  const char first = style.upperCase ? 'A' : 'a';
  const auto* const end =
      std::ranges::find_if_not(text, [&](char c) { return c >= first && c < first + kLetters; });
  return static_cast<std::size_t>(end - text.begin());
}

}  // namespace

std::int64_t Sequence::at(std::size_t index) const {
  constexpr auto kMostSteps = std::numeric_limits<std::int64_t>::max();
  const bool fits = index <= static_cast<std::uint64_t>(kMostSteps);
  std::int64_t number = fits ? static_cast<std::int64_t>(index) : kMostSteps;
  if (__builtin_mul_overflow(number, step, &number) ||
      __builtin_add_overflow(number, first, &number)) {
    return step < 0 ? -kLastNumber : kMostSteps;
  }
  return number;
}

bool labelExists(Numerals numerals, std::int64_t number) {
  const std::int64_t least = numerals == Numerals::Decimal ? 0 : 1;
  return number >= least && number <= (numerals == Numerals::Roman ? kLastRoman : kLastNumber);
}

std::string whyNoLabel(Numerals numerals, std::int64_t number, std::size_t line) {
  const bool roman = numerals == Numerals::Roman;
  const bool letters = numerals == Numerals::Letters;
  const char* const what = roman ? "Roman numeral" : letters ? "letter" : "label";
  return "line " + std::to_string(line) + ": there is no " + what + " for " +
         std::to_string(number) + ", they go from " + (roman || letters ? "1" : "0") + " to " +
         std::to_string(roman ? kLastRoman : kLastNumber);
}

std::size_t labelWidth(const LabelStyle& style, std::int64_t number) {
  if (style.numerals == Numerals::Roman) return romanOf(number, true).size();
  if (style.numerals == Numerals::Letters) {
    return static_cast<std::size_t>((number + kLetters - 1) / kLetters);
  }
  std::size_t digits = 1;
  for (std::int64_t power = 10; digits < kMostDigits && number >= power; power *= 10) ++digits;
  return std::max(style.digits, digits);
}

std::size_t widestLabel(const LabelStyle& style, const Sequence& numbers, std::size_t count) {
  const auto width = [&](std::size_t index) {
    const std::int64_t number = numbers.at(index);
    return labelExists(style.numerals, number) ? labelWidth(style, number) : 0;
  };
  std::size_t widest = std::max(width(0), width(count - 1));
  // Other labels only grow with their number.
  if (style.numerals != Numerals::Roman) return widest;
  for (std::size_t i = 1; i < count && width(i) > 0; ++i) widest = std::max(widest, width(i));
  return widest;
}

void appendLabel(std::string& text, const LabelStyle& style, std::int64_t number) {
  if (style.numerals == Numerals::Roman) {
    text += romanOf(number, style.upperCase);
  } else if (style.numerals == Numerals::Letters) {
    text.append(labelWidth(style, number),
                static_cast<char>((style.upperCase ? 'A' : 'a') + (number - 1) % kLetters));
  } else {
    std::array<char, kMostDigits + 1> room{};
    const auto end = std::to_chars(room.data(), room.data() + room.size(), number).ptr;
    const auto digits = static_cast<std::size_t>(end - room.data());
    if (digits < style.digits) text.append(style.digits - digits, '0');
    text.append(room.data(), digits);
    if (style.ordinal) appendOrdinal(text, number);
  }
}

std::int64_t numberOf(Numerals numerals, std::string_view label) {
  if (label.empty()) return -1;
  if (numerals == Numerals::Decimal) return numberOfDigits(label);
  return numerals == Numerals::Letters ? numberOfLetters(label) : numberOfRoman(label);
}

std::size_t findLabel(const LabelStyle& style, std::string_view text, std::int64_t& number) {
  std::size_t length = labelCharacters(style, text);
  if (style.numerals == Numerals::Roman) length = std::min(length, kLongestRoman);
  if (style.numerals == Numerals::Letters && length > 0) {
    length = std::min(length, text.find_first_not_of(text.front()));
  }
  while (length > 0 && (number = numberOf(style.numerals, text.substr(0, length))) < 0) --length;
  if (length == 0 || !style.ordinal || number == 0) return length;
  // Whoever has changed a number may have left the ordinal.
  for (const std::string_view ordinal : {"st", "nd", "rd", "th"}) {
    if (text.substr(length).starts_with(ordinal)) return length + ordinal.size();
  }
  return 0;
}

}  // namespace kvrnstep::lines
