#pragma once

#include "kvrnstep/component.hpp"

namespace kvrnstep::component {

// The number of type descriptions that each object has, and the description of an interface. They
// come from the type library in this module, which only Windows has.
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
