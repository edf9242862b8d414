#pragma once

#include <map>
#include <string>
#include <string_view>

#include "component.h"

namespace stepdrive {

/// The parameters of the next calls, set by their names.
class CallArguments {
 public:
  /// @throws ScriptError for an unknown name or a value that its type cannot hold
  void set(std::u16string_view name, const std::u16string& value);
  /// @throws ScriptError when there is no optional parameter of that name
  void omit(std::u16string_view name);

  /// Calls ShowListwrightDialog.
  /// @param list takes its first argument when it has returned
  /// @return its result
  /// @throws std::runtime_error when the call fails
  bool call(kvrnstep::_Listwright& listwright, std::u16string& list) const;

 private:
  std::map<std::u16string, std::u16string, std::less<>> values_{{u"theLwOutputString", u""},
                                                                {u"SEC_APP_NAME", u"Listwright"}};
};

}  // namespace stepdrive
