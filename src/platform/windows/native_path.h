#pragma once

#include <string>

namespace kvrnstep::platform {

/// The path as the system takes it, long ones in the form that has no limit; empty, which names
/// nothing, for a path with a NUL in it.
std::u16string nativePath(const std::u16string& path);

/// The path from a drive or a server on; empty when there is none.
std::u16string fullPath(const std::u16string& path);

/// The part up to and with the last separator, or the colon of a drive; empty for a name alone.
std::u16string folderPart(const std::u16string& path);

}  // namespace kvrnstep::platform
