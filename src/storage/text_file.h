#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"

/// Files that hold one text.
namespace kvrnstep::storage {

/// Replaces the file's content with the text and CR LF. False when the file cannot be written or
/// would have more than `largest` bytes; it is then unchanged.
bool WriteTextFile(const std::u16string& sFile, std::u16string_view sText,
                   std::size_t largest = platform::kLargestFile);

/// The file's text without one CR LF at its end, if there is one. Empty when the file is missing
/// or cannot be read.
std::u16string ReadTextFile(const std::u16string& sFile);

/// Whether the path names a file or a folder.
inline bool FileExists(const std::u16string& sFile) {
  return platform::pathExists(sFile);
}
inline bool PathExists(const std::u16string& sPath) {
  return platform::pathExists(sPath);
}

}  // namespace kvrnstep::storage
