#pragma once

#include <cstring>

#include "kvrnstep/component.hpp"

namespace kvrnstep::tests {

/// A late-bound argument of the type that holds the value.
template <class T>
VARIANT variant(VARTYPE type, const T& value) {
  VARIANT made;
  VariantInit(&made);
  made.vt = type;
  std::memcpy(&made.llVal, &value, sizeof value);
  return made;
}

}  // namespace kvrnstep::tests
