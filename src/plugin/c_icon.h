#pragma once

#include <cstdint>
#include <string>

namespace kvrnstep::plugin {

/// The class by which hosts get the program's icons.
class cIcon {
 public:
  /// Writes an icon as the file "Stepicon.ico" into the plug-in's folder, in place of the one that
  /// was asked for before.
  /// @param piIndex101to103 101 (32×32 and 16×16 pixels), 102 (16×16) or 103 (32×32)
  /// @return the file's full path; empty on failure, and the file is then as it was
  static std::u16string RequestProgramIcon(std::int16_t piIndex101to103);
};

}  // namespace kvrnstep::plugin
