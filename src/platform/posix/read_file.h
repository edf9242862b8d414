#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::platform {

/// `readFile` for a path that is already the system's: a link may lead to a name that has no
/// equal in UTF-16.
std::optional<std::string> readNativeFile(const std::string& path);

/// Whether the file is a regular one that holds exactly these bytes.
bool nativeFileHolds(const std::string& path, std::string_view bytes);

}  // namespace kvrnstep::platform
