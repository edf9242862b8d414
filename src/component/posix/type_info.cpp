#include "component/type_info.h"

namespace kvrnstep::component {

HRESULT typeInfo(const GUID& /*interfaceId*/, ITypeInfo** /*info*/) {
  return DISP_E_BADINDEX;
}

}  // namespace kvrnstep::component
