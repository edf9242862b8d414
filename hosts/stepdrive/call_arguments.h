#pragma once

#include <map>
#include <string>
#include <string_view>

#include "kvrnstep/listwright.hpp"

namespace stepdrive {

/// The parameters of the next calls, set by their names.
class CallArguments {
 public:
  CallArguments();

  /// @throws ScriptError for an unknown name or a value that its type cannot hold
  void set(std::string_view name, const std::u16string& value);
  /// @throws ScriptError when there is no optional parameter of that name
  void omit(std::string_view name);

  /// Views into this object, valid until the next change.
  [[nodiscard]] kvrnstep::DialogArguments view() const;

 private:
  std::map<std::string, std::u16string, std::less<>> values_;
};

}  // namespace stepdrive
