#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "text/text.h"

namespace kvrnstep::text {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct ReadNumber {
  double value = 0;
  std::size_t length = 0;  ///< characters that the number takes up; 0: there is none
};

/// Tells numbers that are too large (1) from those that are too close to 0 (-1), by the place of
/// the first digit that is not 0 and by the exponent.
int magnitude(std::string_view number) {
  const auto mantissa = number.substr(0, number.find_first_of("eE"));
  const auto whole = std::min(mantissa.find('.'), mantissa.size());
  const auto first = std::min(mantissa.find_first_not_of("0."), mantissa.size());
  const auto position = static_cast<long long>(whole) - static_cast<long long>(first);
  if (mantissa.size() == number.size()) return position > 0 ? 1 : -1;

  auto exponent = number.substr(mantissa.size() + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  long long shift = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
  if (read.ec == std::errc::result_out_of_range) return exponent.front() == '-' ? -1 : 1;
  return position + shift > 0 ? 1 : -1;
}

/// @param text nothing but digits, points, signs and "e"
ReadNumber readNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  const auto digits = text.substr(negative || text.starts_with('+') ? 1 : 0);
  ReadNumber number;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
  if (read.ec == std::errc::invalid_argument || digits.starts_with('-')) return {};
  number.length = static_cast<std::size_t>(read.ptr - text.data());
  if (read.ec == std::errc::result_out_of_range) {
    const std::string_view all(digits.data(), read.ptr);
    number.value = magnitude(all) > 0 ? kInfinity : 0;
  }
  if (negative) number.value = -number.value;
  return number;
}

constexpr bool isNumberCharacter(char16_t c) {
  return (c >= u'0' && c <= u'9') || c == u'.' || c == u'-' || c == u'+' || c == u'e' || c == u'E';
}

/// The characters up to the first that no number holds, without blanks and tabs.
std::string numberCharacters(std::u16string_view text) {
  std::string characters;
  for (const char16_t c : text) {
    if (c == u' ' || c == u'\t') continue;
    if (!isNumberCharacter(c)) break;
    characters += static_cast<char>(c);
  }
  return characters;
}

/// The library's rounding depends on a mode of the processor, which the host may have changed.
double roundHalfToEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  const double half = below / 2;
  return half == std::floor(half) ? below : below + 1;
}

template <class Whole>
std::optional<Whole> roundTo(double number) {
  if (!std::isfinite(number)) return std::nullopt;
  const double rounded = roundHalfToEven(number);
  if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max()) {
    return std::nullopt;
  }
  return static_cast<Whole>(rounded);
}

}  // namespace

double leadingNumber(std::u16string_view text) {
  return readNumber(numberCharacters(text)).value;
}

std::optional<double> wholeTextNumber(std::u16string_view text) {
  const auto trimmed = trimBlanks(text);
  if (!std::all_of(trimmed.begin(), trimmed.end(), isNumberCharacter)) return std::nullopt;
  const auto number = readNumber(numberCharacters(trimmed));
  if (number.length == 0 || number.length != trimmed.size() || !std::isfinite(number.value)) {
    return std::nullopt;
  }
  return number.value;
}

std::optional<std::int16_t> roundToInt16(double number) {
  return roundTo<std::int16_t>(number);
}
std::optional<std::int32_t> roundToInt32(double number) {
  return roundTo<std::int32_t>(number);
}

std::u16string detail::decimalOfWhole(std::int64_t number) {
  std::array<char, 24> digits{};
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return fromAscii({digits.data(), end});
}

std::u16string decimal(float number) {
  constexpr int kSignificantDigits = 7;
  if (number == 0) return u"0";
  std::array<char, 32> digits{};
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                  std::chars_format::general, kSignificantDigits)
                        .ptr;
  return fromAscii({digits.data(), end});
}

}  // namespace kvrnstep::text
