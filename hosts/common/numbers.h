#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace hosts {

/// The whole text as a number of that type, in decimal; nothing if it is none.
template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace hosts
