#include "component/icon_object.h"

#include <array>

#include "component/bstr.h"
#include "plugin/c_icon.h"

namespace kvrnstep::component {

namespace {

constexpr std::array<Parameter, 1> kParameters{{{u"piIndex101to103", ParameterType::Integer}}};
/// Script hosts ask for a property with arguments as if it were a method.
constexpr std::array<Member, 1> kMembers{{{u"RequestProgramIcon", KVRNSTEP_REQUEST_PROGRAM_ICON,
                                           DISPATCH_PROPERTYGET | DISPATCH_METHOD, kParameters}}};

}  // namespace

HRESULT IconObject::RequestProgramIcon(std::int16_t piIndex101to103, BSTR* result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return guarded([&] {
    *result = newBstr(plugin::cIcon::RequestProgramIcon(piIndex101to103));
    return S_OK;
  });
}

std::span<const Member> IconObject::members() const {
  return kMembers;
}

HRESULT IconObject::call(const Member& /*member*/, LateArguments& arguments, VARIANT* result) {
  std::int16_t id = 0;
  arguments.read(0, id);
  if (FAILED(arguments.result())) return arguments.result();
  const std::u16string path = plugin::cIcon::RequestProgramIcon(id);
  if (result != nullptr) {
    result->bstrVal = newBstr(path);
    result->vt = VT_BSTR;
  }
  return S_OK;
}

}  // namespace kvrnstep::component
