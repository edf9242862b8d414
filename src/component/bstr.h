#pragma once

#include <new>
#include <string>
#include <string_view>

#include "kvrnstep/component.hpp"

/// Converts between the counted texts of the interfaces and our own.
namespace kvrnstep::component {

inline std::u16string textOf(BSTR text) {
  if (text == nullptr) return {};
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

/// A text that the host frees.
/// @throws std::bad_alloc
inline BSTR newBstr(std::u16string_view text) {
  BSTR copy = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                static_cast<UINT>(text.size()));
  if (copy == nullptr) throw std::bad_alloc();
  return copy;
}

}  // namespace kvrnstep::component
