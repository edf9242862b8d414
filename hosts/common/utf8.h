#pragma once

#include <algorithm>
#include <locale>
#include <string>
#include <string_view>

/// Between the UTF-8 of files and command lines and the UTF-16 of the component. What has no
/// counterpart becomes U+FFFD.
namespace hosts {

namespace detail {
template <class Unit>
const auto& utf8() {
  return std::use_facet<std::codecvt<Unit, char8_t, std::mbstate_t>>(std::locale::classic());
}
}  // namespace detail

/// A character and the bytes that it takes.
struct Decoded {
  char32_t point = U'\uFFFD';
  std::size_t length = 1;

  /// Whether it stands for a byte that is no part of a character.
  [[nodiscard]] bool broken() const { return point == U'\uFFFD' && length == 1; }
};

/// The character at the beginning of the bytes, of which there is at least one.
inline Decoded decodeUtf8(std::string_view bytes) {
  constexpr std::size_t kLongest = 4;
  const std::u8string first(bytes.begin(), bytes.begin() + std::min(bytes.size(), kLongest));
  std::mbstate_t state{};
  const char8_t* next = nullptr;
  char32_t point = 0;
  char32_t* end = nullptr;
  detail::utf8<char32_t>().in(state, first.data(), first.data() + first.size(), next, &point,
                              &point + 1, end);
  if (end == &point) return {};
  return {point, static_cast<std::size_t>(next - first.data())};
}

/// Whether all bytes belong to characters.
inline bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const Decoded character = decodeUtf8(bytes);
    if (character.broken()) return false;
    bytes.remove_prefix(character.length);
  }
  return true;
}

inline std::u16string fromUtf8(std::string_view bytes) {
  std::u16string text;
  while (!bytes.empty()) {
    const auto [point, length] = decodeUtf8(bytes);
    bytes.remove_prefix(length);
    if (point >= 0x10000) {
      text += static_cast<char16_t>(0xD7C0 + (point >> 10));
      text += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    } else {
      text += static_cast<char16_t>(point);
    }
  }
  return text;
}

inline std::string toUtf8(std::u16string_view text) {
  constexpr std::u8string_view kReplacement = u8"\uFFFD";
  std::u8string bytes(text.size() * kReplacement.size(), u8'\0');
  const char16_t* from = text.data();
  const char16_t* const end = from + text.size();
  char8_t* to = bytes.data();
  while (from != end) {
    std::mbstate_t state{};
    detail::utf8<char16_t>().out(state, from, end, from, to, bytes.data() + bytes.size(), to);
    if (from == end) break;
    to += kReplacement.copy(to, kReplacement.size());
    ++from;
  }
  return {bytes.data(), to};
}

}  // namespace hosts
