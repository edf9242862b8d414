#pragma once

#include <cstdint>
#include <string>

#include "forms/toolkit.h"

namespace kvrnstep::plugin {

/// What a host passes to ShowListwrightDialog, in the order of the parameters; those with a value
/// here may be left out.
struct ShowArguments {
  std::int16_t iBuildStep = 0;  ///< listing type to start with, 0 to 3
  bool BuMenuMode = false;      ///< the listing type stands against stored defaults
  bool bolIsSoundAvailable = false;
  std::u16string swavAlertQ;
  std::u16string swavFinishQ;
  std::u16string sPthStepFolder;  ///< one trailing separator is dropped; empty: the plug-in folder
  std::u16string SEC_APP_NAME;
  std::u16string SEC_APP_LWDR;
  std::int32_t l_EditorBColor = static_cast<std::int32_t>(0x80000005);
  std::int32_t l_EditorFColor = static_cast<std::int32_t>(0x80000008);
  std::u16string s_IniPathAndName;  ///< empty: "steps.ini" in the plug-in folder
  std::u16string s_EditorFont;      ///< empty: "Courier New"
  std::int16_t i_EditorSize = 9;
  std::uint8_t bytSpcCount = 4;
  bool insertCopies = false;  ///< no parameter of the component's: Insert fills the clipboard, too
};

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
                                   const ShowArguments& arguments);
};

}  // namespace kvrnstep::plugin
