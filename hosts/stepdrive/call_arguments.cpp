#include "call_arguments.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "kvrnstep/fields.hpp"
#include "numbers.h"
#include "script.h"
#include "utf8.h"

namespace stepdrive {

// On Windows some of these names are macros.
using namespace kvrnstep;  // NOLINT(google-build-using-namespace)

namespace {

const Parameter& parameter(std::u16string_view name) {
  const auto* found = std::ranges::find(kCallParameters, name, &Parameter::name);
  if (found == kCallParameters.end()) throw ScriptError("no parameter " + hosts::toUtf8(name));
  return *found;
}

template <class Number>
std::optional<Number> numberOf(const std::u16string& word) {
  return hosts::numberOf<Number>(hosts::toUtf8(word));
}

bool fits(ParameterType type, const std::u16string& word) {
  switch (type) {
    case ParameterType::Boolean:
      return word == u"True" || word == u"False";
    case ParameterType::Integer:
      return numberOf<std::int16_t>(word).has_value();
    case ParameterType::Long:
      return numberOf<std::int32_t>(word).has_value();
    case ParameterType::Byte:
      return numberOf<std::uint8_t>(word).has_value();
    case ParameterType::Text:
      break;
  }
  return true;
}

}  // namespace

CallArguments::CallArguments() {
  values_[u"SEC_APP_NAME"] = u"Listwright";
}

void CallArguments::set(std::u16string_view name, const std::u16string& value) {
  if (!fits(parameter(name).type, value)) {
    throw ScriptError(hosts::toUtf8(name) + " cannot hold that value");
  }
  values_[std::u16string(name)] = value;
}

void CallArguments::omit(std::u16string_view name) {
  if (!parameter(name).optional) throw ScriptError(hosts::toUtf8(name) + " cannot be left out");
  if (const auto found = values_.find(name); found != values_.end()) values_.erase(found);
}

const std::u16string* CallArguments::given(std::u16string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

std::u16string CallArguments::text(std::u16string_view name) const {
  const std::u16string* value = given(name);
  return value == nullptr ? std::u16string() : *value;
}

kvrnstep::VARIANT_BOOL CallArguments::truth(std::u16string_view name) const {
  return text(name) == u"True" ? VARIANT_TRUE : VARIANT_FALSE;
}

bool CallArguments::call(kvrnstep::_Listwright& listwright, std::u16string& list) const {
  Bstr output(text(u"theLwOutputString"));
  const Bstr alertSound(text(u"swavAlertQ"));
  const Bstr finishSound(text(u"swavFinishQ"));
  const Bstr stepFolder(text(u"sPthStepFolder"));
  const Bstr section(text(u"SEC_APP_NAME"));
  const Bstr secondSection(text(u"SEC_APP_LWDR"));
  Bstr settings(text(u"s_IniPathAndName"));
  Bstr font(text(u"s_EditorFont"));
  auto backColor = numberOf<kvrnstep::LONG>(text(u"l_EditorBColor"));
  auto foreColor = numberOf<kvrnstep::LONG>(text(u"l_EditorFColor"));
  auto fontSize = numberOf<std::int16_t>(text(u"i_EditorSize"));
  auto blanks = numberOf<std::uint8_t>(text(u"bytSpcCount"));
  const auto pointer = [](auto& value) { return value ? &*value : nullptr; };
  kvrnstep::VARIANT_BOOL result = VARIANT_FALSE;
  // Whose texts these are the analyzer cannot see: they lie behind their counts.
  // NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
  const kvrnstep::HRESULT done = listwright.ShowListwrightDialog(
      output.place(), numberOf<std::int16_t>(text(u"iBuildStep")).value_or(std::int16_t{0}),
      truth(u"BuMenuMode"), truth(u"bolIsSoundAvailable"), alertSound.get(), finishSound.get(),
      stepFolder.get(), section.get(), secondSection.get(), pointer(backColor), pointer(foreColor),
      given(u"s_IniPathAndName") != nullptr ? settings.place() : nullptr,
      given(u"s_EditorFont") != nullptr ? font.place() : nullptr, pointer(fontSize),
      pointer(blanks), &result);
  if (FAILED(done)) throw std::runtime_error("the call failed");
  list = output.text();
  return result != VARIANT_FALSE;
}

}  // namespace stepdrive
