#pragma once

#include "component/object.h"

namespace kvrnstep::component {

/// The class that hands out icons, as hosts hold it.
class IconObject final : public Object<_cIcon, kInterfaceIcon> {
 public:
  HRESULT STDMETHODCALLTYPE RequestProgramIcon(std::int16_t piIndex101to103, BSTR* result) override;

 private:
  [[nodiscard]] std::span<const Member> members() const override;
  HRESULT call(const Member& member, LateArguments& arguments, VARIANT* result) override;
};

}  // namespace kvrnstep::component
