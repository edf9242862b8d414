#include "platform/letter_case.h"

#include <windows.h>

#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

constexpr char16_t kEndOfAscii = 0x80;
constexpr char16_t kFromCapitalToSmall = u'a' - u'A';

/// By the rules that belong to no language.
char16_t convert(char16_t character, DWORD how) {
  char16_t converted = character;
  const int count = ::LCMapStringEx(LOCALE_NAME_INVARIANT, how, text::wide(&character), 1,
                                    text::wide(&converted), 1, nullptr, nullptr, 0);
  return count == 1 ? converted : character;
}

}  // namespace

char16_t lowerCase(char16_t character) {
  if (character >= kEndOfAscii) return convert(character, LCMAP_LOWERCASE);
  const bool capital = character >= u'A' && character <= u'Z';
  return static_cast<char16_t>(capital ? character + kFromCapitalToSmall : character);
}

char16_t upperCase(char16_t character) {
  if (character >= kEndOfAscii) return convert(character, LCMAP_UPPERCASE);
  const bool small = character >= u'a' && character <= u'z';
  return static_cast<char16_t>(small ? character - kFromCapitalToSmall : character);
}

}  // namespace kvrnstep::platform
