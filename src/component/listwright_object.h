#pragma once

#include <tuple>

#include "component/object.h"
#include "plugin/front_end.h"
#include "plugin/listwright.h"

namespace kvrnstep::component {

/// The class that shows the dialog, as hosts hold it.
class ListwrightObject final : public Object<_Listwright, kInterfaceListwright> {
 public:
  HRESULT STDMETHODCALLTYPE PlugNameVersion(BSTR* result) override {
    return handOut(result, plugin::Listwright::PlugNameVersion);
  }

  HRESULT STDMETHODCALLTYPE ShowListwrightDialog(
      BSTR* theLwOutputString, std::int16_t iBuildStep, VARIANT_BOOL BuMenuMode,
      VARIANT_BOOL bolIsSoundAvailable, BSTR swavAlertQ, BSTR swavFinishQ, BSTR sPthStepFolder,
      BSTR SEC_APP_NAME, BSTR SEC_APP_LWDR, LONG* l_EditorBColor, LONG* l_EditorFColor,
      BSTR* s_IniPathAndName, BSTR* s_EditorFont, std::int16_t* i_EditorSize,
      std::uint8_t* bytSpcCount, VARIANT_BOOL* result) override {
    if (theLwOutputString == nullptr || result == nullptr) return E_POINTER;
    *result = VARIANT_FALSE;
    const RunningCall running;
    return guarded([&] {
      plugin::CallArguments arguments;
      copyFields(
          callFields(arguments),
          std::tie(iBuildStep, BuMenuMode, bolIsSoundAvailable, swavAlertQ, swavFinishQ,
                   sPthStepFolder, SEC_APP_NAME, SEC_APP_LWDR, l_EditorBColor, l_EditorFColor,
                   s_IniPathAndName, s_EditorFont, i_EditorSize, bytSpcCount),
          Take());
      std::u16string list;
      *result = show(arguments, list);
      BSTR written = newBstr(list);
      SysFreeString(*theLwOutputString);
      *theLwOutputString = written;
      return S_OK;
    });
  }

 private:
  static constexpr std::array<Member, 2> kMembers{{
      {u"PlugNameVersion", KVRNSTEP_PLUG_NAME_VERSION, DISPATCH_METHOD, {}},
      {u"ShowListwrightDialog", KVRNSTEP_SHOW_LISTWRIGHT_DIALOG, DISPATCH_METHOD, kCallParameters},
  }};

  /// Takes over the arguments of an early-bound host. Arguments that it left out keep their
  /// defaults.
  struct Take {
    template <class Field, class Given>
    void operator()(Field& field, Given given) const {
      if constexpr (std::is_same_v<Given, BSTR>) {
        field = textOf(given);
      } else if constexpr (std::is_pointer_v<Given>) {
        if (given != nullptr) (*this)(field, *given);
      } else {
        field = static_cast<Field>(given);
      }
    }
  };

  [[nodiscard]] std::span<const Member> members() const override { return kMembers; }

  HRESULT call(const Member& member, LateArguments& arguments, VARIANT* result) override {
    if (member.id == KVRNSTEP_PLUG_NAME_VERSION) {
      if (result == nullptr) return S_OK;
      result->vt = VT_BSTR;
      return PlugNameVersion(&result->bstrVal);
    }
    const RunningCall running;
    plugin::CallArguments read;
    TextTarget target;
    arguments.read(0, target);
    std::size_t parameter = 0;
    std::apply([&](auto&... field) { (arguments.read(++parameter, field), ...); },
               callFields(read));
    if (FAILED(arguments.result())) return arguments.result();
    std::u16string list;
    const VARIANT_BOOL inserted = show(read, list);
    writeText(target, list);
    if (result != nullptr) {
      result->vt = VT_BOOL;
      result->boolVal = inserted;
    }
    return S_OK;
  }

  /// Shows the dialog where there is a front end to show it.
  static VARIANT_BOOL show(const plugin::CallArguments& arguments, std::u16string& list) {
    std::string problem;
    const bool inserted =
        plugin::Listwright::ShowListwrightDialog(plugin::frontEnd(problem), list, arguments);
    return inserted ? VARIANT_TRUE : VARIANT_FALSE;
  }
};

}  // namespace kvrnstep::component
