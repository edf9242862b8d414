#pragma once

#include <cstdint>
#include <string>

namespace kvrnstep::stepfiles {

enum class PathMode : std::uint8_t {
  BaseName,         ///< the file name without its last extension
  FileName,         ///< … with it
  FolderSeparated,  ///< the folder with the separator behind it
  Folder,           ///< … without it
  Extension,        ///< without its full stop; empty where there is none
};

/// A part of a full path, which is split at its last separator, the file name at its last full
/// stop. A path without a separator has no parts.
std::u16string PathPart(const std::u16string& path, PathMode mode);

}  // namespace kvrnstep::stepfiles
