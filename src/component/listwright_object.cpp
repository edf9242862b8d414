#include "component/listwright_object.h"

#include <array>
#include <tuple>

#include "component/bstr.h"
#include "plugin/front_end.h"

namespace kvrnstep::component {

namespace {

static_assert(std::tuple_size_v<decltype(callFields(std::declval<plugin::ShowArguments&>()))> + 1 ==
              kCallParameters.size());

constexpr std::array<Member, 2> kMembers{{
    {u"PlugNameVersion", KVRNSTEP_PLUG_NAME_VERSION, DISPATCH_METHOD, {}},
    {u"ShowListwrightDialog", KVRNSTEP_SHOW_LISTWRIGHT_DIALOG, DISPATCH_METHOD, kCallParameters},
}};

/// Shows the dialog where there is a front end to show it.
bool show(const plugin::ShowArguments& arguments, std::u16string& list) {
  std::string problem;
  return plugin::Listwright::ShowListwrightDialog(plugin::frontEnd(problem), list, arguments);
}

VARIANT_BOOL variantBool(bool truth) {
  return truth ? VARIANT_TRUE : VARIANT_FALSE;
}

/// Takes over what a host passes, and leaves alone what it left out.
struct Take {
  void operator()(std::int16_t& field, std::int16_t given) const { field = given; }
  void operator()(bool& field, VARIANT_BOOL given) const { field = given != VARIANT_FALSE; }
  void operator()(std::u16string& field, BSTR given) const { field = textOf(given); }
  void operator()(std::u16string& field, const BSTR* given) const {
    if (given != nullptr) field = textOf(*given);
  }
  template <class Number, class Given>
  void operator()(Number& field, const Given* given) const {
    if (given != nullptr) field = *given;
  }
};

}  // namespace

HRESULT ListwrightObject::PlugNameVersion(BSTR* result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return guarded([&] {
    *result = newBstr(plugin::Listwright::PlugNameVersion());
    return S_OK;
  });
}

HRESULT ListwrightObject::ShowListwrightDialog(
    BSTR* theLwOutputString, std::int16_t iBuildStep, VARIANT_BOOL BuMenuMode,
    VARIANT_BOOL bolIsSoundAvailable, BSTR swavAlertQ, BSTR swavFinishQ, BSTR sPthStepFolder,
    BSTR SEC_APP_NAME, BSTR SEC_APP_LWDR, LONG* l_EditorBColor, LONG* l_EditorFColor,
    BSTR* s_IniPathAndName, BSTR* s_EditorFont, std::int16_t* i_EditorSize,
    std::uint8_t* bytSpcCount, VARIANT_BOOL* result) {
  if (theLwOutputString == nullptr || result == nullptr) return E_POINTER;
  *result = VARIANT_FALSE;
  return guarded([&] {
    plugin::ShowArguments arguments;
    copyFields(callFields(arguments),
               std::tie(iBuildStep, BuMenuMode, bolIsSoundAvailable, swavAlertQ, swavFinishQ,
                        sPthStepFolder, SEC_APP_NAME, SEC_APP_LWDR, l_EditorBColor, l_EditorFColor,
                        s_IniPathAndName, s_EditorFont, i_EditorSize, bytSpcCount),
               Take());
    std::u16string list;
    *result = variantBool(show(arguments, list));
    BSTR written = newBstr(list);
    SysFreeString(*theLwOutputString);
    *theLwOutputString = written;
    return S_OK;
  });
}

std::span<const Member> ListwrightObject::members() const {
  return kMembers;
}

HRESULT ListwrightObject::call(const Member& member, LateArguments& arguments, VARIANT* result) {
  if (member.id == KVRNSTEP_SHOW_LISTWRIGHT_DIALOG) {
    return callShowListwrightDialog(arguments, result);
  }
  if (result == nullptr) return S_OK;
  result->bstrVal = newBstr(plugin::Listwright::PlugNameVersion());
  result->vt = VT_BSTR;
  return S_OK;
}

HRESULT ListwrightObject::callShowListwrightDialog(LateArguments& arguments, VARIANT* result) {
  plugin::ShowArguments read;
  arguments.check(0, checkTextTarget);
  std::size_t parameter = 0;
  std::apply([&](auto&... field) { (arguments.read(++parameter, field), ...); }, callFields(read));
  if (FAILED(arguments.result())) return arguments.result();

  std::u16string list;
  const bool inserted = show(read, list);
  writeText(*arguments[0], list);
  if (result != nullptr) {
    result->vt = VT_BOOL;
    result->boolVal = variantBool(inserted);
  }
  return S_OK;
}

}  // namespace kvrnstep::component
