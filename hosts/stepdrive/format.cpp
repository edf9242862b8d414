#include "format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "script.h"
#include "utf8.h"

namespace stepdrive {

namespace {

/// A number that is not whole has the digits of single precision, which is that of places.
std::string decimal(double number) {
  std::array<char, 64> digits{};
  const auto write = [&](auto value) {
    return std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed).ptr;
  };
  const bool whole = number == std::nearbyint(number);
  return {digits.begin(), whole ? write(number) : write(static_cast<float>(number))};
}

/// The escape for a character, or nothing where it is written as it is.
std::string escapeOf(char16_t unit) {
  const auto* named = std::ranges::find(kEscapes, unit, &Escape::character);
  if (named != kEscapes.end()) return {'\\', static_cast<char>(named->letter)};
  if (unit >= 0x20 && (unit < 0x7F || unit >= 0xA0)) return {};
  std::array<char, 8> escape{};
  std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(unit));
  return escape.data();
}

}  // namespace

std::string inQuotes(std::u16string_view text) {
  std::string result = "\"";
  std::size_t plainFrom = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string escape = escapeOf(text[i]);
    if (escape.empty()) continue;
    result += hosts::toUtf8(text.substr(plainFrom, i - plainFrom)) + escape;
    plainFrom = i + 1;
  }
  return result + hosts::toUtf8(text.substr(plainFrom)) + "\"";
}

std::string formatted(const kvrnstep::driving::Value& value) {
  if (const auto* word = std::get_if<std::string>(&value)) return *word;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
  if (const auto* number = std::get_if<double>(&value)) return decimal(*number);
  return inQuotes(std::get<std::u16string>(value));
}

}  // namespace stepdrive
