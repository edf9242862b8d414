#pragma once

#include <string>

namespace kvrnstep::platform {

/// The path as the system takes it; empty, which names nothing, for a path with a NUL in it.
std::string nativePath(const std::u16string& path);

/// The part up to and with the last slash; empty for a name alone.
std::string folderPart(const std::string& path);

}  // namespace kvrnstep::platform
