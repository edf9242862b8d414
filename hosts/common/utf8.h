#pragma once

#include <string>
#include <string_view>

namespace hosts {

namespace detail {

inline std::size_t lengthFromLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 2;
  return lead < 0xF0 ? 3 : 4;
}

}  // namespace detail

/// A character and the bytes that it takes.
struct Decoded {
  char32_t point;
  std::size_t length;

  /// Whether it stands for a byte that belongs to no character.
  [[nodiscard]] bool broken() const { return point == 0xFFFD && length == 1; }
};

/// The character at the beginning of the bytes, of which there is at least one. A byte that
/// belongs to no character is U+FFFD.
inline Decoded decodeUtf8(std::string_view bytes) {
  constexpr Decoded kNone{0xFFFD, 1};
  constexpr char32_t kSmallestOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = detail::lengthFromLead(lead);
  if (length == 0 || length > bytes.size()) return kNone;
  char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
  for (const char byte : bytes.substr(1, length - 1)) {
    const auto value = static_cast<unsigned char>(byte);
    if ((value & 0xC0U) != 0x80) return kNone;
    point = point << 6 | (value & 0x3FU);
  }
  if (point < kSmallestOfLength[length] || point > 0x10FFFF) return kNone;
  return {point, length};
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

/// UTF-16 from UTF-8. A byte that belongs to no character becomes U+FFFD.
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

/// UTF-8 from UTF-16. Half a surrogate pair becomes U+FFFD.
inline std::string toUtf8(std::u16string_view text) {
  std::string bytes;
  const auto put = [&bytes](char32_t value) { bytes += static_cast<char>(value); };
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool high = point >= 0xD800 && point < 0xDC00;
    if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (point >= 0xD800 && point < 0xE000) {
      point = 0xFFFD;
    }
    if (point < 0x80) {
      put(point);
    } else if (point < 0x800) {
      put(0xC0 | point >> 6);
      put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
      put(0xE0 | point >> 12);
      put(0x80 | (point >> 6 & 0x3F));
      put(0x80 | (point & 0x3F));
    } else {
      put(0xF0 | point >> 18);
      put(0x80 | (point >> 12 & 0x3F));
      put(0x80 | (point >> 6 & 0x3F));
      put(0x80 | (point & 0x3F));
    }
  }
  return bytes;
}

}  // namespace hosts
