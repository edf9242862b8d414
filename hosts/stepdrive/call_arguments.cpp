#include "call_arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

#include "script.h"
#include "utf8.h"

namespace stepdrive {

namespace {

enum class Type { Text, Boolean, Integer, Long, Byte };

struct Parameter {
  std::string_view name;
  Type type;
  bool optional;
};

constexpr auto kParameters = std::to_array<Parameter>({
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

/// The whole word as a number of that type, in decimal.
template <class T>
std::optional<T> numberOf(const std::u16string& word) {
  const std::string digits = hosts::toUtf8(word);
  T value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
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

kvrnstep::DialogArguments CallArguments::view() const {
  const auto given = [this](std::string_view name) -> std::optional<std::u16string_view> {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
    return found->second;
  };
  const auto text = [&](std::string_view name) {
    return given(name).value_or(std::u16string_view());
  };
  const auto truth = [&](std::string_view name) { return text(name) == u"True"; };
  const auto number = [&]<class T>(std::string_view name, T) -> std::optional<T> {
    const auto word = given(name);
    return word ? numberOf<T>(std::u16string(*word)) : std::nullopt;
  };
  return {
      .iBuildStep = number("iBuildStep", std::int16_t{}).value_or(std::int16_t{0}),
      .BuMenuMode = truth("BuMenuMode"),
      .bolIsSoundAvailable = truth("bolIsSoundAvailable"),
      .swavAlertQ = text("swavAlertQ"),
      .swavFinishQ = text("swavFinishQ"),
      .sPthStepFolder = text("sPthStepFolder"),
      .SEC_APP_NAME = text("SEC_APP_NAME"),
      .SEC_APP_LWDR = text("SEC_APP_LWDR"),
      .l_EditorBColor = number("l_EditorBColor", std::int32_t{}),
      .l_EditorFColor = number("l_EditorFColor", std::int32_t{}),
      .s_IniPathAndName = given("s_IniPathAndName"),
      .s_EditorFont = given("s_EditorFont"),
      .i_EditorSize = number("i_EditorSize", std::int16_t{}),
      .bytSpcCount = number("bytSpcCount", std::uint8_t{}),
  };
}

}  // namespace stepdrive
