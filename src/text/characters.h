#pragma once

#include <string_view>

/// Characters of one and of two UTF-16 units.
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

/// … which is taken off the text.
constexpr std::u16string_view takeCharacter(std::u16string_view& text) {
  const auto character = firstCharacter(text);
  text.remove_prefix(character.size());
  return character;
}

}  // namespace kvrnstep::text
