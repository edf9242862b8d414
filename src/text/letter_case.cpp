#include "text/letter_case.h"

#include <algorithm>

namespace kvrnstep::text {

namespace {

constexpr char16_t kEndOfAscii = 0x80;
constexpr char16_t kFromCapitalToSmall = u'a' - u'A';

std::u16string converted(std::u16string_view text, char16_t (*conversion)(char16_t)) {
  std::u16string result(text);
  std::ranges::transform(result, result.begin(), conversion);
  return result;
}

}  // namespace

char16_t smallLetter(char16_t character) {
  if (character >= kEndOfAscii) return detail::inCase(character, detail::LetterCase::Small);
  const bool capital = character >= u'A' && character <= u'Z';
  return static_cast<char16_t>(capital ? character + kFromCapitalToSmall : character);
}

char16_t capitalLetter(char16_t character) {
  if (character >= kEndOfAscii) return detail::inCase(character, detail::LetterCase::Capital);
  const bool small = character >= u'a' && character <= u'z';
  return static_cast<char16_t>(small ? character - kFromCapitalToSmall : character);
}

std::u16string lowerCase(std::u16string_view text) {
  return converted(text, smallLetter);
}

std::u16string upperCase(std::u16string_view text) {
  return converted(text, capitalLetter);
}

std::u16string properCase(std::u16string_view text) {
  constexpr std::u16string_view kSeparators{u" \t\r\n\v\f\0", 7};
  std::u16string result(text);
  bool wordBegins = true;
  for (char16_t& character : result) {
    character = wordBegins ? capitalLetter(character) : smallLetter(character);
    wordBegins = kSeparators.find(character) != std::u16string_view::npos;
  }
  return result;
}

bool equalIgnoringCase(std::u16string_view one, std::u16string_view other) {
  return std::ranges::equal(one, other, {}, smallLetter, smallLetter);
}

}  // namespace kvrnstep::text
