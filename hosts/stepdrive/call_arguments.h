#pragma once

#include <map>
#include <string>
#include <string_view>

#include "component.h"

namespace stepdrive {

/// The parameters of the next calls, set by their names.
class CallArguments {
 public:
  CallArguments();

  /// @throws ScriptError for an unknown name or a value that its type cannot hold
  void set(std::u16string_view name, const std::u16string& value);
  /// @throws ScriptError when there is no optional parameter of that name
  void omit(std::u16string_view name);

  /// Calls ShowListwrightDialog.
  /// @param list its first argument, before and after
  /// @return its result
  /// @throws std::runtime_error when the call fails
  bool call(kvrnstep::_Listwright& listwright, std::u16string& list) const;

 private:
  /// The value of a parameter, if it has one.
  [[nodiscard]] const std::u16string* given(std::u16string_view name) const;
  [[nodiscard]] std::u16string text(std::u16string_view name) const;
  [[nodiscard]] kvrnstep::VARIANT_BOOL truth(std::u16string_view name) const;

  std::map<std::u16string, std::u16string, std::less<>> values_;
};

}  // namespace stepdrive
