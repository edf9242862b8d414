#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "text/windows/wide.h"

/// For functions of the system that take the system's code page. What has no place there becomes
/// something else, and names no file then.
namespace kvrnstep::windows {

inline std::string toAnsi(std::u16string_view wide) {
  const std::u16string text(wide);
  const auto units = static_cast<int>(text.size());
  const int size =
      ::WideCharToMultiByte(CP_ACP, 0, text::wide(text), units, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_ACP, 0, text::wide(text), units, result.data(), size, nullptr, nullptr);
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
