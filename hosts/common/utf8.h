#pragma once

#include <string>
#include <string_view>

namespace hosts {

/// UTF-16 from UTF-8. A byte that belongs to no character becomes U+FFFD.
inline std::u16string fromUtf8(std::string_view bytes) {
  constexpr char32_t kReplacement = 0xFFFD;
  constexpr char32_t kSmallestOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
  std::u16string text;
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t point = length < 2 ? lead : lead & (0x7Fu >> length);
    if (length == 0 || i + length > bytes.size()) length = 0;
    for (std::size_t k = 1; k < length; ++k) {
      const auto byte = static_cast<unsigned char>(bytes[i + k]);
      if ((byte & 0xC0) != 0x80) {
        length = 0;
        break;
      }
      point = point << 6 | (byte & 0x3Fu);
    }
    if (length == 0 || point < kSmallestOfLength[length] || point > 0x10FFFF) {
      point = kReplacement;
      length = 1;
    }
    if (point >= 0x10000) {
      text += static_cast<char16_t>(0xD7C0 + (point >> 10));
      text += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    } else {
      text += static_cast<char16_t>(point);
    }
    i += length;
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
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
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
