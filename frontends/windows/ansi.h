#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "text/windows/wide.h"

/// For functions of the system that take the system's code page.
namespace kvrnstep::windows {

/// Nothing when a character has no place of its own there: one that merely looks alike would name
/// another file.
inline std::optional<std::string> toAnsi(std::u16string_view text) {
  const auto units = static_cast<int>(text.size());
  if (units == 0) return std::string();
  const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
  BOOL lost = FALSE;
  const auto convert = [&](char* bytes, int room) {
    return ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide, units, bytes, room, nullptr,
                                 &lost);
  };
  std::string result(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  if (convert(result.data(), static_cast<int>(result.size())) == 0 || lost != FALSE) {
    return std::nullopt;
  }
  return result;
}

inline std::u16string fromAnsi(std::string_view text) {
  const auto bytes = static_cast<int>(text.size());
  const int size = ::MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
  std::u16string result(static_cast<std::size_t>(size), u'\0');
  ::MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, text::wide(result.data()), size);
  return result;
}

}  // namespace kvrnstep::windows
