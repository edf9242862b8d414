#include "platform/letter_case.h"

#include <clocale>
#include <cwctype>
#include <limits>

namespace kvrnstep::platform {

namespace {

/// A locale that knows the letters of Unicode and nothing of languages. Without one, capitals and
/// small letters are those of ASCII.
class Alphabets {
 public:
  Alphabets() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr))) {}
  ~Alphabets() {
    if (locale_ != nullptr) freelocale(locale_);
  }
  Alphabets(const Alphabets&) = delete;
  Alphabets& operator=(const Alphabets&) = delete;

  [[nodiscard]] char16_t convert(char16_t character, wint_t (*conversion)(wint_t, locale_t)) const {
    if (locale_ == nullptr) return character;
    const wint_t converted = conversion(character, locale_);
    return converted > std::numeric_limits<char16_t>::max() ? character
                                                            : static_cast<char16_t>(converted);
  }

 private:
  locale_t locale_;
};

char16_t convert(char16_t character, wint_t (*conversion)(wint_t, locale_t)) {
  static const Alphabets alphabets;
  return alphabets.convert(character, conversion);
}

constexpr char16_t kEndOfAscii = 0x80;
constexpr char16_t kFromCapitalToSmall = u'a' - u'A';

}  // namespace

char16_t lowerCase(char16_t character) {
  if (character >= kEndOfAscii) return convert(character, towlower_l);
  const bool capital = character >= u'A' && character <= u'Z';
  return static_cast<char16_t>(capital ? character + kFromCapitalToSmall : character);
}

char16_t upperCase(char16_t character) {
  if (character >= kEndOfAscii) return convert(character, towupper_l);
  const bool small = character >= u'a' && character <= u'z';
  return static_cast<char16_t>(small ? character - kFromCapitalToSmall : character);
}

}  // namespace kvrnstep::platform
