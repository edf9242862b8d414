#pragma once

#include "kvrnstep/component.hpp"

namespace kvrnstep::component {

// How many descriptions each object has of its members, and the description of an interface. Only
// Windows has type libraries; the one in this module is asked there.
#ifdef _WIN32
inline constexpr UINT kTypeInfoCount = 1;
HRESULT typeInfo(const GUID& interfaceId, ITypeInfo** info);
#else
inline constexpr UINT kTypeInfoCount = 0;
inline HRESULT typeInfo(const GUID& /*interfaceId*/, ITypeInfo** /*info*/) {
  return DISP_E_BADINDEX;
}
#endif

}  // namespace kvrnstep::component
