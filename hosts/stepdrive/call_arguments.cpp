#include "call_arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>

#include "numbers.h"
#include "script.h"
#include "utf8.h"

namespace stepdrive {

// On Windows some of these names are macros.
using namespace kvrnstep;  // NOLINT(google-build-using-namespace)

namespace {

enum class Type { Text, Boolean, Integer, Long, Byte };

struct Parameter {
  std::string_view name;
  Type type;
  bool optional;
};

constexpr auto kParameters = std::to_array<Parameter>({
    {"theLwOutputString", Type::Text, false},
    {"iBuildStep", Type::Integer, false},
    {"BuMenuMode", Type::Boolean, false},
    {"bolIsSoundAvailable", Type::Boolean, false},
    {"swavAlertQ", Type::Text, false},
    {"swavFinishQ", Type::Text, false},
    {"sPthStepFolder", Type::Text, false},
    {"SEC_APP_NAME", Type::Text, false},
    {"SEC_APP_LWDR", Type::Text, false},
    {"l_EditorBColor", Type::Long, true},
    {"l_EditorFColor", Type::Long, true},
    {"s_IniPathAndName", Type::Text, true},
    {"s_EditorFont", Type::Text, true},
    {"i_EditorSize", Type::Integer, true},
    {"bytSpcCount", Type::Byte, true},
});

const Parameter& parameter(std::string_view name) {
  const auto* found = std::ranges::find(kParameters, name, &Parameter::name);
  if (found == kParameters.end()) throw ScriptError("no parameter " + std::string(name));
  return *found;
}

template <class Number>
std::optional<Number> numberOf(const std::u16string& word) {
  return hosts::numberOf<Number>(hosts::toUtf8(word));
}

bool fits(Type type, const std::u16string& word) {
  switch (type) {
    case Type::Boolean:
      return word == u"True" || word == u"False";
    case Type::Integer:
      return numberOf<std::int16_t>(word).has_value();
    case Type::Long:
      return numberOf<std::int32_t>(word).has_value();
    case Type::Byte:
      return numberOf<std::uint8_t>(word).has_value();
    case Type::Text:
      break;
  }
  return true;
}

}  // namespace

CallArguments::CallArguments() {
  values_["SEC_APP_NAME"] = u"Listwright";
}

void CallArguments::set(std::string_view name, const std::u16string& value) {
  if (!fits(parameter(name).type, value)) {
    throw ScriptError(std::string(name) + " cannot hold that value");
  }
  values_[std::string(name)] = value;
}

void CallArguments::omit(std::string_view name) {
  if (!parameter(name).optional) throw ScriptError(std::string(name) + " cannot be left out");
  if (const auto found = values_.find(name); found != values_.end()) values_.erase(found);
}

const std::u16string* CallArguments::given(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

std::u16string CallArguments::text(std::string_view name) const {
  const std::u16string* value = given(name);
  return value == nullptr ? std::u16string() : *value;
}

kvrnstep::VARIANT_BOOL CallArguments::truth(std::string_view name) const {
  return text(name) == u"True" ? VARIANT_TRUE : VARIANT_FALSE;
}

bool CallArguments::call(kvrnstep::_Listwright& listwright, std::u16string& list) const {
  Bstr output(text("theLwOutputString"));
  const Bstr alertSound(text("swavAlertQ"));
  const Bstr finishSound(text("swavFinishQ"));
  const Bstr stepFolder(text("sPthStepFolder"));
  const Bstr section(text("SEC_APP_NAME"));
  const Bstr secondSection(text("SEC_APP_LWDR"));
  Bstr settings(text("s_IniPathAndName"));
  Bstr font(text("s_EditorFont"));
  auto backColor = numberOf<kvrnstep::LONG>(text("l_EditorBColor"));
  auto foreColor = numberOf<kvrnstep::LONG>(text("l_EditorFColor"));
  auto fontSize = numberOf<std::int16_t>(text("i_EditorSize"));
  auto blanks = numberOf<std::uint8_t>(text("bytSpcCount"));
  const auto pointer = [](auto& value) { return value ? &*value : nullptr; };
  kvrnstep::VARIANT_BOOL result = VARIANT_FALSE;
  // Whose texts these are the analyzer cannot see: they lie behind their counts.
  // NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
  const kvrnstep::HRESULT done = listwright.ShowListwrightDialog(
      output.place(), numberOf<std::int16_t>(text("iBuildStep")).value_or(std::int16_t{0}),
      truth("BuMenuMode"), truth("bolIsSoundAvailable"), alertSound.get(), finishSound.get(),
      stepFolder.get(), section.get(), secondSection.get(), pointer(backColor), pointer(foreColor),
      given("s_IniPathAndName") != nullptr ? settings.place() : nullptr,
      given("s_EditorFont") != nullptr ? font.place() : nullptr, pointer(fontSize), pointer(blanks),
      &result);
  if (FAILED(done)) throw std::runtime_error("the call failed");
  list = output.text();
  return result != VARIANT_FALSE;
}

}  // namespace stepdrive
