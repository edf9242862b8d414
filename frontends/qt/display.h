#pragma once

#include <optional>
#include <string>

namespace kvrnstep::qt {

/// Finds out, before Qt is started, whether it will find a display: Qt ends the process where it
/// does not. The result is the name of the platform plug-in to ask for, empty to leave the choice
/// to Qt; nothing, and one line in `problem`, where no display answers.
std::optional<std::string> findPlatform(std::string& problem);

}  // namespace kvrnstep::qt
