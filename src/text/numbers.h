#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers read from text and written as text, always with a decimal point: what a person typed
/// or a file holds must not change its value with the locale of the host.
namespace kvrnstep::text {

/// The number that the text begins with: sign, digits, decimal point, exponent. Blanks and tabs
/// are ignored everywhere, so "1 2" is 12. 0 if the text begins with no number, infinity if the
/// number is too large for a double.
double leadingNumber(std::u16string_view text);

/// The whole text, without the blanks around it, as a number. Nothing if it is none or is too large
/// for a double.
std::optional<double> wholeTextNumber(std::u16string_view text);

/// The nearest whole number, a half going to the even neighbour: 2.5 gives 2, 3.5 gives 4.
/// Nothing when it does not fit the type.
std::optional<std::int16_t> roundToInt16(double number);
std::optional<std::int32_t> roundToInt32(double number);

namespace detail {
std::u16string decimalOfWhole(std::int64_t number);
}

/// Plain decimal digits, with a minus sign before a negative number.
template <std::integral Number>
std::u16string decimal(Number number) {
  static_assert(sizeof(Number) < 8 || std::signed_integral<Number>);
  return detail::decimalOfWhole(static_cast<std::int64_t>(number));
}

/// Up to seven significant digits, no more than needed: 9 gives "9", 9.75 gives "9.75". Has an
/// exponent below 0.0001 and from 10,000,000 on.
std::u16string decimal(float number);

}  // namespace kvrnstep::text
