#include "call_arguments.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <type_traits>

#include "numbers.h"
#include "script.h"
#include "utf8.h"

namespace stepdrive {

using kvrnstep::Parameter;
using kvrnstep::ParameterType;

namespace {

const Parameter& parameter(std::u16string_view name) {
  const auto* found = std::ranges::find(kvrnstep::kCallParameters, name, &Parameter::name);
  if (found == kvrnstep::kCallParameters.end())
    throw ScriptError("no parameter " + hosts::toUtf8(name));
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

void CallArguments::set(std::u16string_view name, const std::u16string& value) {
  if (!fits(parameter(name).type, value)) {
    throw ScriptError(hosts::toUtf8(name) + " cannot hold that value");
  }
  given_[std::u16string(name)] = hosts::toUtf8(value);
}

void CallArguments::omit(std::u16string_view name) {
  if (!parameter(name).optional) throw ScriptError(hosts::toUtf8(name) + " cannot be left out");
  given_.erase(std::u16string(name));
}

kvrnstep_dialog CallArguments::dialog() const {
  kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;
  const auto* parameter = kvrnstep::kCallParameters.begin();
  const auto take = [&](auto& field) {
    const auto found = given_.find((++parameter)->name);
    if (found == given_.end()) return;
    if constexpr (std::is_same_v<decltype(field), const char*&>) {
      field = found->second.c_str();
    } else {
      const int truth = found->second == "True" ? 1 : 0;
      field = hosts::numberOf<std::int32_t>(found->second).value_or(truth);
    }
  };
  std::apply([&](auto&... field) { (take(field), ...); }, kvrnstep::callFields(dialog));
  return dialog;
}

}  // namespace stepdrive
