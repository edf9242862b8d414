#pragma once

#include <string>
#include <string_view>

/// Paths as texts; nothing here looks at the disk.
namespace kvrnstep::text {

/// Between folder and file name in the paths that the plug-in builds.
#ifdef _WIN32
inline constexpr char16_t kSeparator = u'\\';
#else
inline constexpr char16_t kSeparator = u'/';
#endif

/// Slash and backslash on every platform, because hosts pass paths of either kind.
constexpr bool isSeparator(char16_t character) {
  return character == u'/' || character == u'\\';
}

/// The path without the one separator at its end, if there is one.
inline std::u16string withoutTrailingSeparator(std::u16string_view path) {
  if (!path.empty() && isSeparator(path.back())) path.remove_suffix(1);
  return std::u16string(path);
}

/// The path of a file in a folder.
inline std::u16string inFolder(std::u16string folder, std::u16string_view name) {
  folder += kSeparator;
  folder += name;
  return folder;
}

}  // namespace kvrnstep::text
