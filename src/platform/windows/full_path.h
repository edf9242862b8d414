#pragma once

#include <string>

namespace kvrnstep::platform {

/// The path made absolute; empty when that fails.
std::u16string fullPath(const std::u16string& path);

}  // namespace kvrnstep::platform
