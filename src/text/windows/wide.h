#pragma once

#include <string>

/// The system's wide characters are UTF-16 under another name.
namespace kvrnstep::text {

inline const wchar_t* wide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* wide(const std::u16string& text) {
  return wide(text.c_str());
}
inline wchar_t* wide(char16_t* text) {
  return reinterpret_cast<wchar_t*>(text);
}
inline const char16_t* utf16(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

}  // namespace kvrnstep::text
