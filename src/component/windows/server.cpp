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

/// @param whom "user" for the current user alone, as the system defines it; otherwise nothing
STDAPI DllInstall(BOOL install, LPCWSTR whom) {
  using namespace kvrnstep::component;  // NOLINT(google-build-using-namespace)
  if (whom == nullptr || *whom == L'\0') {
    return install != FALSE ? DllRegisterServer() : DllUnregisterServer();
  }
  if (::lstrcmpiW(whom, L"user") != 0) return E_INVALIDARG;
  return guarded(install != FALSE ? registerForUser : unregisterForUser);
}
}
