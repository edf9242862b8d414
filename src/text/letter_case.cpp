#include "text/letter_case.h"

#include <algorithm>

namespace kvrnstep::text {

namespace {

std::u16string converted(std::u16string_view text, char16_t (*conversion)(char16_t)) {
  std::u16string result(text);
  std::ranges::transform(result, result.begin(), conversion);
  return result;
}

}  // namespace

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
