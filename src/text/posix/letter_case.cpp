#include "text/letter_case.h"

#include <clocale>
#include <cwctype>
#include <limits>

namespace kvrnstep::text {

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

}  // namespace

char16_t detail::inCase(char16_t character, LetterCase wanted) {
  static const Alphabets alphabets;
  return alphabets.convert(character, wanted == LetterCase::Small ? towlower_l : towupper_l);
}

}  // namespace kvrnstep::text
