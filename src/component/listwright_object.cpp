#include "component/listwright_object.h"

#include <array>

#include "component/bstr.h"
#include "component/late_values.h"
#include "plugin/front_end.h"

namespace kvrnstep::component {

namespace {

/// Positions of the parameters.
enum Position : std::size_t {
  kOutputString,
  kBuildStep,
  kMenuMode,
  kSoundAvailable,
  kAlertSound,
  kFinishSound,
  kStepFolder,
  kSection,
  kSecondSection,
  kBackColor,
  kForeColor,
  kSettingsFile,
  kFont,
  kFontSize,
  kBlanks,
};

constexpr std::array<Parameter, 15> kShowParameters{{
    {u"theLwOutputString"},
    {u"iBuildStep"},
    {u"BuMenuMode"},
    {u"bolIsSoundAvailable"},
    {u"swavAlertQ"},
    {u"swavFinishQ"},
    {u"sPthStepFolder"},
    {u"SEC_APP_NAME"},
    {u"SEC_APP_LWDR"},
    {u"l_EditorBColor", true},
    {u"l_EditorFColor", true},
    {u"s_IniPathAndName", true},
    {u"s_EditorFont", true},
    {u"i_EditorSize", true},
    {u"bytSpcCount", true},
}};

constexpr std::array<Member, 2> kMembers{{
    {u"PlugNameVersion", KVRNSTEP_PLUG_NAME_VERSION, DISPATCH_METHOD, {}},
    {u"ShowListwrightDialog", KVRNSTEP_SHOW_LISTWRIGHT_DIALOG, DISPATCH_METHOD, kShowParameters},
}};

/// Shows the dialog where there is a front end to show it.
bool show(const plugin::ShowArguments& arguments, std::u16string& list) {
  std::string problem;
  return plugin::Listwright::ShowListwrightDialog(plugin::frontEnd(problem), list, arguments);
}

VARIANT_BOOL variantBool(bool truth) {
  return truth ? VARIANT_TRUE : VARIANT_FALSE;
}

template <class T, class Given>
void assignIfGiven(T& field, const Given* given) {
  if (given != nullptr) field = *given;
}

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
    plugin::ShowArguments arguments{
        .iBuildStep = iBuildStep,
        .BuMenuMode = BuMenuMode != VARIANT_FALSE,
        .bolIsSoundAvailable = bolIsSoundAvailable != VARIANT_FALSE,
        .swavAlertQ = textOf(swavAlertQ),
        .swavFinishQ = textOf(swavFinishQ),
        .sPthStepFolder = textOf(sPthStepFolder),
        .SEC_APP_NAME = textOf(SEC_APP_NAME),
        .SEC_APP_LWDR = textOf(SEC_APP_LWDR),
    };
    assignIfGiven(arguments.l_EditorBColor, l_EditorBColor);
    assignIfGiven(arguments.l_EditorFColor, l_EditorFColor);
    if (s_IniPathAndName != nullptr) arguments.s_IniPathAndName = textOf(*s_IniPathAndName);
    if (s_EditorFont != nullptr) arguments.s_EditorFont = textOf(*s_EditorFont);
    assignIfGiven(arguments.i_EditorSize, i_EditorSize);
    assignIfGiven(arguments.bytSpcCount, bytSpcCount);

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
  arguments.check(kOutputString, checkTextTarget);
  arguments.read(kBuildStep, readInteger, read.iBuildStep);
  arguments.read(kMenuMode, readBoolean, read.BuMenuMode);
  arguments.read(kSoundAvailable, readBoolean, read.bolIsSoundAvailable);
  arguments.read(kAlertSound, readText, read.swavAlertQ);
  arguments.read(kFinishSound, readText, read.swavFinishQ);
  arguments.read(kStepFolder, readText, read.sPthStepFolder);
  arguments.read(kSection, readText, read.SEC_APP_NAME);
  arguments.read(kSecondSection, readText, read.SEC_APP_LWDR);
  arguments.read(kBackColor, readLong, read.l_EditorBColor);
  arguments.read(kForeColor, readLong, read.l_EditorFColor);
  arguments.read(kSettingsFile, readText, read.s_IniPathAndName);
  arguments.read(kFont, readText, read.s_EditorFont);
  arguments.read(kFontSize, readInteger, read.i_EditorSize);
  arguments.read(kBlanks, readByte, read.bytSpcCount);
  if (FAILED(arguments.result())) return arguments.result();

  std::u16string list;
  const bool inserted = show(read, list);
  writeText(*arguments[kOutputString], list);
  if (result != nullptr) {
    result->vt = VT_BOOL;
    result->boolVal = variantBool(inserted);
  }
  return S_OK;
}

}  // namespace kvrnstep::component
