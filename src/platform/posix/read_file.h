#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kvrnstep::platform {

/// `readFile` for a path that is already the system's: a link may lead to a name that has no
/// equal in UTF-16.
std::optional<std::string> readNativeFile(const std::string& path,
                                          std::size_t largest = static_cast<std::size_t>(-1));

}  // namespace kvrnstep::platform
