#pragma once

#include "kvrnstep/component.hpp"

namespace kvrnstep::component {

/// How many descriptions each object has of its members: where there are type libraries, the one
/// in this module.
#ifdef _WIN32
inline constexpr UINT kTypeInfoCount = 1;
#else
inline constexpr UINT kTypeInfoCount = 0;
#endif

/// The description of an interface.
HRESULT typeInfo(const GUID& interfaceId, ITypeInfo** info);

}  // namespace kvrnstep::component
