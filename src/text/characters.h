#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

/// Characters of one and of two UTF-16 units, and texts of them compared.
namespace kvrnstep::text {

/// Whether these are the two halves of one character.
constexpr bool isSurrogatePair(std::u16string_view units) {
  constexpr unsigned kKind = 0xFC00U;
  return units.size() == 2 && (units[0] & kKind) == 0xD800U && (units[1] & kKind) == 0xDC00U;
}

/// The one unit or the two units of the first character of a text that is not empty.
constexpr std::u16string_view firstCharacter(std::u16string_view text) {
  const auto two = text.substr(0, 2);
  return isSurrogatePair(two) ? two : text.substr(0, 1);
}

/// How many units two texts begin alike with. Several at a time are compared, since texts of one
/// list often begin alike.
inline std::size_t lengthInCommon(std::u16string_view one, std::u16string_view other) {
  constexpr std::size_t kBlock = 4;
  const std::size_t shorter = std::min(one.size(), other.size());
  std::size_t i = 0;
  while (i + kBlock <= shorter &&
         std::memcmp(one.data() + i, other.data() + i, kBlock * sizeof(char16_t)) == 0) {
    i += kBlock;
  }
  while (i < shorter && one[i] == other[i]) ++i;
  return i;
}

}  // namespace kvrnstep::text
