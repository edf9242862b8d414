#include "accessible_names.h"

#include <initguid.h>
#include <objbase.h>
// After the other ones.
#include <oleacc.h>

#include <array>

#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

LONG numberOf(Role role) {
  switch (role) {
    case Role::Link:
      return ROLE_SYSTEM_LINK;
    case Role::Button:
      return ROLE_SYSTEM_PUSHBUTTON;
    case Role::Picture:
      return ROLE_SYSTEM_GRAPHIC;
    case Role::Group:
      return ROLE_SYSTEM_GROUPING;
  }
  return ROLE_SYSTEM_CLIENT;
}

}  // namespace

AccessibleNames::AccessibleNames()
    : joined_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
  void* service = nullptr;
  if (SUCCEEDED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IAccPropServices, &service))) {
    service_ = static_cast<IAccPropServices*>(service);
  }
}

AccessibleNames::~AccessibleNames() {
  if (service_ != nullptr) {
    const std::array properties{PROPID_ACC_NAME, PROPID_ACC_ROLE};
    for (const Told& told : told_) {
      service_->ClearHwndProps(told.control, static_cast<DWORD>(OBJID_CLIENT), told.part,
                               properties.data(), static_cast<int>(properties.size()));
    }
    service_->Release();
  }
  if (joined_) ::CoUninitialize();
}

void AccessibleNames::setName(HWND control, const std::u16string& name, DWORD part) {
  if (service_ == nullptr) return;
  service_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), part, PROPID_ACC_NAME,
                           text::wide(name));
  told_.push_back({control, part});
}

void AccessibleNames::setRole(HWND control, Role role) {
  if (service_ == nullptr) return;
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = numberOf(role);
  service_->SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_ROLE,
                        value);
  told_.push_back({control, CHILDID_SELF});
}

}  // namespace kvrnstep::windows
