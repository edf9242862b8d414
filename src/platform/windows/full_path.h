#pragma once

#include <string>

namespace kvrnstep::platform {

/// The path from a drive or a server on; empty when there is none.
std::u16string fullPath(const std::u16string& path);

}  // namespace kvrnstep::platform
