#pragma once

#include <map>
#include <string>
#include <string_view>

#include "kvrnstep/fields.hpp"

namespace stepdrive {

/// The parameters of the next calls, set by their names.
class CallArguments {
 public:
  /// @throws ScriptError for an unknown name or a value that its type cannot hold
  void set(std::u16string_view name, const std::u16string& value);
  /// @throws ScriptError when there is no optional parameter of that name
  void omit(std::u16string_view name);

  /// What the plug-in is called with; valid until the next change.
  [[nodiscard]] kvrnstep_dialog dialog() const;

 private:
  std::map<std::u16string, std::string, std::less<>> given_{{u"SEC_APP_NAME", "Listwright"}};
};

}  // namespace stepdrive
