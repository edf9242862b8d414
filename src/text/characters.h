#pragma once

#include <string_view>

/// Characters of one and of two UTF-16 units.
namespace kvrnstep::text {

/// Whether these are the two halves of one character.
constexpr bool isSurrogatePair(std::u16string_view units) {
  constexpr unsigned kKind = 0xFC00U;
  return units.size() == 2 && (units[0] & kKind) == 0xD800U && (units[1] & kKind) == 0xDC00U;
}

/// Takes the first character, of one unit or two, off a text that is not empty.
constexpr std::u16string_view takeCharacter(std::u16string_view& text) {
  const auto character = text.substr(0, isSurrogatePair(text.substr(0, 2)) ? 2 : 1);
  text.remove_prefix(character.size());
  return character;
}

}  // namespace kvrnstep::text
