#pragma once

#include <sys/stat.h>

#include <string>

namespace kvrnstep::platform {

/// Whether this is a regular file that may be written. The permission bits are looked at besides,
/// because the system lets the superuser pass them.
/// @param state of the file that the path leads to
bool isWritableFile(const std::string& path, const struct stat& state);

}  // namespace kvrnstep::platform
