#include "text/letter_case.h"

#include <algorithm>
#include <array>

namespace kvrnstep::text {

namespace {

/// Capitals whose small letters lie a fixed distance above them …
struct ShiftedRange {
  char16_t first;
  char16_t last;
  char16_t distance;
};
constexpr std::array<ShiftedRange, 6> kShifted{{{0x00C0, 0x00D6, 32},
                                                {0x00D8, 0x00DE, 32},
                                                {0x0391, 0x03A1, 32},
                                                {0x03A3, 0x03AB, 32},
                                                {0x0400, 0x040F, 80},
                                                {0x0410, 0x042F, 32}}};

/// … and capitals that take turns with their small letters, from a capital on.
struct PairedRange {
  char16_t first;
  char16_t last;
};
constexpr std::array<PairedRange, 5> kPaired{
    {{0x0100, 0x012F}, {0x0132, 0x0137}, {0x014A, 0x0177}, {0x0460, 0x0481}, {0x048A, 0x04BF}}};
/// The same, but beginning at an odd number.
constexpr std::array<PairedRange, 2> kPairedFromOdd{{{0x0139, 0x0148}, {0x0179, 0x017E}}};

bool within(const PairedRange& range, char16_t character) {
  return character >= range.first && character <= range.last;
}

bool pairedCapital(char16_t character) {
  const auto holds = [character](const PairedRange& range) { return within(range, character); };
  const bool odd = character % 2 == 1;
  return odd ? std::ranges::any_of(kPairedFromOdd, holds) : std::ranges::any_of(kPaired, holds);
}

}  // namespace

char16_t lowerCase(char16_t character) {
  constexpr char16_t kEndOfAscii = 0x80;
  if (character < kEndOfAscii) {
    const bool capital = character >= u'A' && character <= u'Z';
    return static_cast<char16_t>(capital ? character + 32 : character);
  }
  for (const ShiftedRange& range : kShifted) {
    if (character < range.first) break;
    if (character <= range.last) return static_cast<char16_t>(character + range.distance);
  }
  constexpr char16_t kCapitalYWithDiaeresis = 0x0178;
  if (character == kCapitalYWithDiaeresis) return 0x00FF;
  return pairedCapital(character) ? static_cast<char16_t>(character + 1) : character;
}

bool comesBefore(std::u16string_view one, std::u16string_view other) {
  const std::size_t shorter = std::min(one.size(), other.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (one[i] == other[i]) continue;
    const char16_t inOne = lowerCase(one[i]);
    const char16_t inOther = lowerCase(other[i]);
    if (inOne != inOther) return inOne < inOther;
  }
  if (one.size() != other.size()) return one.size() < other.size();
  return one < other;
}

}  // namespace kvrnstep::text
