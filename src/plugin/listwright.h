#pragma once

#include <string>

#include "forms/toolkit.h"
#include "plugin/host_context.h"

namespace kvrnstep::plugin {

/// The class that hosts create.
class Listwright {
 public:
  /// Name and version for a host's list of plug-ins, a tab between them.
  [[nodiscard]] static std::u16string PlugNameVersion();

  /// Lets the user build one list, and returns when the dialog has closed. While one is open on
  /// this thread it is brought to the front, and the call returns at once as if it was cancelled.
  /// @param toolkit what shows the dialog; null: none can be shown, and the call returns at once
  /// @param theLwOutputString always overwritten: the list after Insert, otherwise empty
  /// @return True after Insert with a generated list
  static bool ShowListwrightDialog(forms::Toolkit* toolkit, std::u16string& theLwOutputString,
                                   const CallArguments& arguments);
};

}  // namespace kvrnstep::plugin
