#include "call_arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <tuple>

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

/// One argument, as whatever the function takes. Left out, it is a null pointer, an empty text or
/// 0.
class Argument {
 public:
  void give(const std::u16string& word) {
    given_ = true;
    text_.set(word);
    const int truth = word == u"True" ? VARIANT_TRUE : VARIANT_FALSE;
    number_ = static_cast<LONG>(numberOf<std::int32_t>(word).value_or(truth));
    integer_ = static_cast<std::int16_t>(number_);
    byte_ = static_cast<std::uint8_t>(number_);
  }

  operator BSTR() const { return text_.get(); }
  operator BSTR*() { return given_ ? text_.place() : nullptr; }
  operator std::int16_t() const { return integer_; }
  operator std::int16_t*() { return given_ ? &integer_ : nullptr; }
  operator LONG*() { return given_ ? &number_ : nullptr; }
  operator std::uint8_t*() { return given_ ? &byte_ : nullptr; }
  [[nodiscard]] std::u16string text() const { return text_.text(); }

 private:
  bool given_ = false;
  Bstr text_;
  LONG number_ = 0;
  std::int16_t integer_ = 0;
  std::uint8_t byte_ = 0;
};

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
  values_[std::u16string(name)] = value;
}

void CallArguments::omit(std::u16string_view name) {
  if (!parameter(name).optional) throw ScriptError(hosts::toUtf8(name) + " cannot be left out");
  values_.erase(std::u16string(name));
}

bool CallArguments::call(kvrnstep::_Listwright& listwright, std::u16string& list) const {
  std::array<Argument, kCallParameters.size()> arguments;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const auto found = values_.find(kCallParameters[i].name);
    if (found != values_.end()) arguments[i].give(found->second);
  }
  VARIANT_BOOL result = VARIANT_FALSE;
  const auto call = [&](auto&... each) {
    return listwright.ShowListwrightDialog(each..., &result);
  };
  if (FAILED(std::apply(call, arguments))) throw std::runtime_error("the call failed");
  list = arguments.front().text();
  return result != VARIANT_FALSE;
}

}  // namespace stepdrive
