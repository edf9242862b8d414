#include "text/codepage.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "text/characters.h"

namespace kvrnstep::text {

namespace {

/// Bytes 0x80 to 0x9F; every other byte is the character of the same number.
constexpr std::array<char16_t, 32> kWindows1252High{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The bits that an ASCII character leaves clear in a word full of characters.
constexpr std::uint64_t notAscii(std::string_view) {
  return 0x8080808080808080U;
}
constexpr std::uint64_t notAscii(std::u16string_view) {
  return 0xFF80FF80FF80FF80U;
}

/// Takes the ASCII characters off the beginning of a text. They are read eight bytes at a time,
/// because files hold little else.
template <class Char>
std::basic_string_view<Char> takeAscii(std::basic_string_view<Char>& text) {
  constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Char);
  std::size_t count = 0;
  for (; count + kStep <= text.size(); count += kStep) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + count, sizeof word);
    if ((word & notAscii(text)) != 0) break;
  }
  while (count < text.size() && static_cast<std::make_unsigned_t<Char>>(text[count]) < 0x80) {
    ++count;
  }
  const auto run = text.substr(0, count);
  text.remove_prefix(count);
  return run;
}

struct Character {
  char32_t code = 0;
  std::size_t bytes = 0;  ///< 0: no UTF-8
};

/// The character at the beginning of the bytes, of which there is at least one.
Character firstCharacter(std::string_view bytes) {
  constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};  // by number of bytes
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return {lead, 1};
  const auto count = static_cast<std::size_t>(std::countl_one(lead));
  if (count < 2 || count >= kSmallest.size() || bytes.size() < count) return {};
  char32_t code = lead & (0x7FU >> count);
  for (std::size_t i = 1; i < count; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0U) != 0x80U) return {};
    code = (code << 6U) | (next & 0x3FU);
  }
  if (code < kSmallest.at(count) || code > 0x10FFFF) return {};
  return {code, count};
}

void append(std::u16string& text, char32_t code) {
  if (code < 0x10000) {
    text += static_cast<char16_t>(code);
    return;
  }
  const char32_t rest = code - 0x10000;
  text += static_cast<char16_t>(0xD800 + (rest >> 10U));
  text += static_cast<char16_t>(0xDC00 + (rest & 0x3FFU));
}

void append(std::string& bytes, char32_t code) {
  constexpr std::array<unsigned, 4> kLeads{0, 0xC0, 0xE0, 0xF0};
  unsigned following = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  bytes += static_cast<char>(kLeads.at(following) | (code >> (6 * following)));
  while (following > 0) {
    bytes += static_cast<char>(0x80U | ((code >> (6 * --following)) & 0x3FU));
  }
}

char32_t codeOf(std::u16string_view character) {
  if (character.size() == 1) return character[0];
  return 0x10000U + ((character[0] & 0x3FFU) << 10U) + (character[1] & 0x3FFU);
}

/// Adds a run of ASCII to a text of the other width.
template <class To, class From>
void appendAscii(std::basic_string<To>& to, std::basic_string_view<From> run) {
  const auto start = to.size();
  to.resize(start + run.size());
  std::transform(run.begin(), run.end(), to.data() + start,
                 [](From c) { return static_cast<To>(c); });
}

}  // namespace

std::string toUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    appendAscii(bytes, takeAscii(text));
    if (!text.empty()) append(bytes, codeOf(takeCharacter(text)));
  }
  return bytes;
}

std::u16string fromBytes(std::string_view bytes) {
  return isUtf8(bytes) ? fromUtf8(bytes) : fromAnsi(bytes);
}

bool isUtf8(std::string_view bytes) {
  for (takeAscii(bytes); !bytes.empty(); takeAscii(bytes)) {
    const auto character = firstCharacter(bytes);
    if (character.bytes == 0) return false;
    bytes.remove_prefix(character.bytes);
  }
  return true;
}

std::u16string fromUtf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    appendAscii(text, takeAscii(bytes));
    if (bytes.empty()) break;
    const auto character = firstCharacter(bytes);
    const auto byte = static_cast<unsigned char>(bytes.front());
    append(text, character.bytes > 0 ? character.code : fromWindows1252(byte));
    bytes.remove_prefix(std::max<std::size_t>(character.bytes, 1));
  }
  return text;
}

std::u16string textFromWindows1252(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char c) { return fromWindows1252(static_cast<unsigned char>(c)); });
  return text;
}

char16_t fromWindows1252(unsigned char byte) {
  if (byte < 0x80 || byte > 0x9F) return byte;
  return kWindows1252High[byte - 0x80U];
}

}  // namespace kvrnstep::text
