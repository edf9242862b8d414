#include <windows.h>

#include <limits>

#include "text/codepage.h"
#include "text/windows/ansi.h"
#include "text/windows/wide.h"

namespace kvrnstep::text {

namespace {

/// The system counts in ints; nothing for what it cannot count.
template <class Text>
std::optional<int> countOf(const Text& text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
  return static_cast<int>(text.size());
}

/// The system's conversion; with no buffer it measures. 0: it fails or would lose a character.
int convert(std::u16string_view text, int count, char* bytes, int room) {
  BOOL lost = FALSE;
  const int length = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide(text.data()), count,
                                           bytes, room, nullptr, &lost);
  return lost != FALSE ? 0 : length;
}

}  // namespace

std::optional<std::string> toAnsi(std::u16string_view text) {
  if (text.empty()) return std::string();
  const auto count = countOf(text);
  const int length = count ? convert(text, *count, nullptr, 0) : 0;
  if (length <= 0) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(length), '\0');
  if (convert(text, *count, bytes.data(), length) != length) return std::nullopt;
  return bytes;
}

std::string toBytes(std::u16string_view text) {
  auto ansi = toAnsi(text);
  // In the code page the bytes of a text may be valid UTF-8 by chance, and would be read as UTF-8.
  return ansi && fromBytes(*ansi) == text ? std::move(*ansi) : toUtf8(text);
}

std::u16string fromAnsi(std::string_view bytes) {
  const auto count = countOf(bytes);
  const int length = count ? ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), *count, nullptr, 0) : 0;
  if (length <= 0) return textFromWindows1252(bytes);
  std::u16string text(static_cast<std::size_t>(length), u'\0');
  ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), *count, wide(text.data()), length);
  return text;
}

}  // namespace kvrnstep::text
