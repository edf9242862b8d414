#include "text/letter_case.h"

#include <clocale>
#include <cwctype>
#include <limits>
#include <memory>
#include <type_traits>

namespace kvrnstep::text {

char16_t detail::inCase(char16_t character, LetterCase wanted) {
  // This locale has the letters of Unicode and the rules of no language. Without it only ASCII
  // letters have another case.
  static const std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&::freelocale)> alphabets(
      ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr), ::freelocale);
  if (!alphabets) return character;
  const auto convert = wanted == LetterCase::Small ? ::towlower_l : ::towupper_l;
  const wint_t converted = convert(character, alphabets.get());
  return converted > std::numeric_limits<char16_t>::max() ? character
                                                          : static_cast<char16_t>(converted);
}

}  // namespace kvrnstep::text
