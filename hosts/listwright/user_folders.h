#pragma once

#include <string>

namespace listwright {

/// The command's own folders for step files and for settings, below the user's: on Windows the one
/// for application data; elsewhere those that XDG_DATA_HOME and XDG_CONFIG_HOME name, or the usual
/// ones in the home folder.
std::string userStepFolder();
std::string userSettingsFolder();

/// Makes the folder with all above it.
/// @throws std::runtime_error when it cannot be made or written
void makeWritableFolder(const std::string& folder);

}  // namespace listwright
