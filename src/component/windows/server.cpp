// The functions that COM and regsvr32 call.

#include "component/object.h"
#include "component/windows/registration.h"
#include "kvrnstep/kvrnstep.h"

extern "C" {

KVRNSTEP_API HRESULT kvrnstepGetClassObject(const CLSID& classId, const IID& interfaceId,
                                            void** object);

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
  return kvrnstepGetClassObject(classId, interfaceId, object);
}

STDAPI DllCanUnloadNow() {
  return kvrnstep::component::held() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return kvrnstep::component::guarded(kvrnstep::component::registerComponent);
}

STDAPI DllUnregisterServer() {
  return kvrnstep::component::guarded(kvrnstep::component::unregisterComponent);
}
}
