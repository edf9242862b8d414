#include "text/letter_case.h"

#include <windows.h>

#include "text/windows/wide.h"

namespace kvrnstep::text {

/// By the rules that belong to no language.
char16_t detail::inCase(char16_t character, LetterCase wanted) {
  char16_t converted = character;
  const DWORD how = wanted == LetterCase::Small ? LCMAP_LOWERCASE : LCMAP_UPPERCASE;
  const int count = ::LCMapStringEx(LOCALE_NAME_INVARIANT, how, wide(&character), 1,
                                    wide(&converted), 1, nullptr, nullptr, 0);
  return count == 1 ? converted : character;
}

}  // namespace kvrnstep::text
