#pragma once

#include "component/object.h"
#include "plugin/listwright.h"

namespace kvrnstep::component {

/// The class that shows the dialog, as hosts hold it.
class ListwrightObject final : public Object<_Listwright, kInterfaceListwright> {
 public:
  HRESULT STDMETHODCALLTYPE PlugNameVersion(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE ShowListwrightDialog(
      BSTR* theLwOutputString, std::int16_t iBuildStep, VARIANT_BOOL BuMenuMode,
      VARIANT_BOOL bolIsSoundAvailable, BSTR swavAlertQ, BSTR swavFinishQ, BSTR sPthStepFolder,
      BSTR SEC_APP_NAME, BSTR SEC_APP_LWDR, LONG* l_EditorBColor, LONG* l_EditorFColor,
      BSTR* s_IniPathAndName, BSTR* s_EditorFont, std::int16_t* i_EditorSize,
      std::uint8_t* bytSpcCount, VARIANT_BOOL* result) override;

 private:
  [[nodiscard]] std::span<const Member> members() const override;
  HRESULT call(const Member& member, LateArguments& arguments, VARIANT* result) override;
  static HRESULT callShowListwrightDialog(LateArguments& arguments, VARIANT* result);
};

}  // namespace kvrnstep::component
