#pragma once

#include "component/object.h"
#include "plugin/c_icon.h"

namespace kvrnstep::component {

/// The class that hands out icons, as hosts hold it.
class IconObject final : public Object<_cIcon, kInterfaceIcon> {
 public:
  HRESULT STDMETHODCALLTYPE RequestProgramIcon(std::int16_t piIndex101to103,
                                               BSTR* result) override {
    return handOut(result, [&] { return plugin::cIcon::RequestProgramIcon(piIndex101to103); });
  }

 private:
  static constexpr std::array<Parameter, 1> kParameters{
      {{u"piIndex101to103", ParameterType::Integer}}};
  /// Script hosts ask for a property with arguments as if it were a method.
  static constexpr std::array<Member, 1> kMembers{
      {{u"RequestProgramIcon", KVRNSTEP_REQUEST_PROGRAM_ICON,
        DISPATCH_PROPERTYGET | DISPATCH_METHOD, kParameters}}};

  [[nodiscard]] std::span<const Member> members() const override { return kMembers; }

  HRESULT call(const Member& /*member*/, LateArguments& arguments, VARIANT* result) override {
    std::int16_t id = 0;
    arguments.read(0, id);
    if (FAILED(arguments.result())) return arguments.result();
    VARIANT unwanted{};
    VARIANT& path = result != nullptr ? *result : unwanted;
    path.vt = VT_BSTR;
    const HRESULT done = RequestProgramIcon(id, &path.bstrVal);
    VariantClear(&unwanted);
    return done;
  }
};

}  // namespace kvrnstep::component
