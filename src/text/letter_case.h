#pragma once

#include <string>
#include <string_view>

/// Letter case by the system's rules for all alphabets, whatever the locale of the host.
namespace kvrnstep::text {

/// The small or the capital letter of a character. A character without one is returned as it is,
/// and so is each half of a surrogate pair.
inline char16_t smallLetter(char16_t character);
inline char16_t capitalLetter(char16_t character);

std::u16string lowerCase(std::u16string_view text);
std::u16string upperCase(std::u16string_view text);
/// A capital at the beginning of every word, small letters in all other places. Words end at
/// blanks, tabs, line ends, page ends and zeros only.
std::u16string properCase(std::u16string_view text);

bool equalIgnoringCase(std::u16string_view one, std::u16string_view other);

namespace detail {
enum class LetterCase : bool { Small, Capital };
/// For characters beyond ASCII.
char16_t inCase(char16_t character, LetterCase wanted);

inline constexpr char16_t kEndOfAscii = 0x80;
inline constexpr char16_t kFromCapitalToSmall = u'a' - u'A';
}  // namespace detail

char16_t smallLetter(char16_t character) {
  if (character >= detail::kEndOfAscii) return detail::inCase(character, detail::LetterCase::Small);
  const bool capital = character >= u'A' && character <= u'Z';
  return static_cast<char16_t>(capital ? character + detail::kFromCapitalToSmall : character);
}

char16_t capitalLetter(char16_t character) {
  if (character >= detail::kEndOfAscii) {
    return detail::inCase(character, detail::LetterCase::Capital);
  }
  const bool small = character >= u'a' && character <= u'z';
  return static_cast<char16_t>(small ? character - detail::kFromCapitalToSmall : character);
}

}  // namespace kvrnstep::text
