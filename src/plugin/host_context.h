#pragma once

#include <cstdint>
#include <string>

namespace kvrnstep::plugin {

/// What the host passes to one call, under the names that hosts use. It is filled when the call
/// begins; the texts are emptied when it ends, numbers and truth values stay.
struct HostContext {
  std::u16string SEC_APP_NAME;      ///< section of the settings file that holds every key
  std::u16string SEC_APP_LWDR;      ///< a second section name; carried, never read
  std::u16string swavAlertQ;        ///< sound file of an alert
  std::u16string swavFinishQ;       ///< sound file of a finished edit
  std::u16string sPthStepFolder;    ///< folder of all of the plug-in's own files
  std::u16string s_IniPathAndName;  ///< settings file
  std::u16string s_EditorFont;      ///< font of the preview
  std::int16_t i_EditorSize = 0;    ///< … and its size in points
  bool bolIsSoundAvailable = false;
  std::int32_t l_EditorBColor = 0;  ///< 0x00BBGGRR, or 0x80000000 + n for the system's colour n
  std::int32_t l_EditorFColor = 0;
  std::uint8_t bytSpcCount = 0;  ///< blanks in one indentation
  bool callIsOpen = false;       ///< this is not the host's, but tells that the call has not ended
};

/// The calling thread's record.
HostContext& hostContext();

}  // namespace kvrnstep::plugin
