#include "accessible_names.h"

#include <initguid.h>
#include <objbase.h>
// After the other ones.
#include <oleacc.h>

#include <array>

#include "control_view.h"
#include "forms/keyboard.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

/// 0 where the system knows the role.
LONG roleOf(const forms::Control& control) {
  if (forms::isLink(control)) return ROLE_SYSTEM_LINK;
  if (forms::takesKeyboard(control)) return ROLE_SYSTEM_PUSHBUTTON;
  switch (control.kind()) {
    case forms::Kind::Image:
      return ROLE_SYSTEM_GRAPHIC;
    case forms::Kind::Frame:
    case forms::Kind::Panel:
      return ROLE_SYSTEM_GROUPING;
    default:
      return 0;
  }
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

void AccessibleNames::announce(const ControlView& view) {
  const forms::Control& control = view.control();
  const HWND handle = view.handle();
  if (service_ == nullptr || handle == nullptr) return;
  // The system reads captions out itself, also when they change.
  if (!control.row().accessibleName.empty() || control.caption().empty()) {
    const std::u16string name = forms::accessibleName(control);
    setName(handle, name);
    if (view.keyTarget() != handle) setName(view.keyTarget(), name);
  }
  if (const LONG role = roleOf(control); role != 0) setRole(handle, role);
  if (control.kind() != forms::Kind::Spinner) return;
  const auto& spinner = static_cast<const forms::Spinner&>(control);
  constexpr DWORD kUp = 1;
  constexpr DWORD kDown = 2;
  setName(handle, forms::accessibleArrowName(spinner, true), kUp);
  setName(handle, forms::accessibleArrowName(spinner, false), kDown);
}

void AccessibleNames::setName(HWND control, const std::u16string& name, DWORD part) {
  service_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), part, PROPID_ACC_NAME,
                           text::wide(name));
  told_.push_back({control, part});
}

void AccessibleNames::setRole(HWND control, LONG role) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = role;
  service_->SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_ROLE,
                        value);
  told_.push_back({control, CHILDID_SELF});
}

}  // namespace kvrnstep::windows
