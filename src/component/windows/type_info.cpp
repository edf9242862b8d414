#include "component/type_info.h"

#include "platform/windows/this_module.h"
#include "text/windows/wide.h"

namespace kvrnstep::component {

HRESULT typeInfo(const GUID& interfaceId, ITypeInfo** info) {
  const std::u16string module = platform::modulePath();
  ITypeLib* library = nullptr;
  HRESULT result = ::LoadTypeLibEx(text::wide(module), REGKIND_NONE, &library);
  if (FAILED(result)) return result;
  result = library->GetTypeInfoOfGuid(interfaceId, info);
  library->Release();
  return result;
}

}  // namespace kvrnstep::component
