#pragma once

#include <string>

namespace listwright {

/// The command's own folder below one of the user's base folders: the one that the environment
/// variable names, otherwise the usual one in the home folder.
std::string userFolder(const char* variable, const std::string& usual);

/// Makes the folder with all above it.
/// @throws std::runtime_error when it cannot be made or written
void makeWritableFolder(const std::string& folder);

}  // namespace listwright
