#pragma once

#include <cstdint>
#include <string>

#include "kvrnstep/fields.hpp"
#include "platform/thread_record.h"

namespace kvrnstep::plugin {

/// What a host passes to a call, under the names that hosts use. Here are the defaults of
/// parameters that may be left out.
struct CallArguments {
  std::int16_t iBuildStep = 0;    ///< listing type to start with
  bool BuMenuMode = false;        ///< the listing type wins over the stored defaults
  bool insertCopies = false;      ///< Insert fills the clipboard, too; only C hosts can ask for it
  std::u16string SEC_APP_NAME;    ///< section of the settings file that holds every key
  std::u16string SEC_APP_LWDR;    ///< a second section name; never used
  std::u16string swavAlertQ;      ///< sound file of an alert
  std::u16string swavFinishQ;     ///< sound file of a finished edit
  std::u16string sPthStepFolder;  ///< folder of all of the plug-in's own files
  std::u16string s_IniPathAndName;  ///< settings file
  /// Font of the preview, and its size in points.
  std::u16string s_EditorFont;
  std::int16_t i_EditorSize = kDialogDefaults.i_EditorSize;
  bool bolIsSoundAvailable = false;
  /// Colours of the preview: 0x00BBGGRR, or 0x80000000 + n for the system's colour n.
  std::int32_t l_EditorBColor = kDialogDefaults.l_EditorBColor;
  std::int32_t l_EditorFColor = kDialogDefaults.l_EditorFColor;
  /// Blanks in one indentation.
  std::uint8_t bytSpcCount = kDialogDefaults.bytSpcCount;
};

/// A thread's latest call, with defaults in place of empty texts. When the call ends its texts are
/// emptied; numbers and truth values stay.
struct HostContext : CallArguments {
  bool callIsOpen = false;
};

/// The calling thread's record.
inline HostContext& hostContext() {
  return platform::ofThisThread<HostContext>();
}

}  // namespace kvrnstep::plugin
