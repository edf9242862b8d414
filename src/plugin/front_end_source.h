#pragma once

#include <string>
#include <string_view>

#include "forms/driven_toolkit.h"

/// Where front ends come from: modules in the plug-in's folder, or, on Windows, the plug-in itself.
namespace kvrnstep::plugin {

/// The front end for people on the calling thread. Null with the reason in `problem`, in one line,
/// where it cannot show a window.
forms::Toolkit* toolkitForPeople(std::string& problem);

/// The front end of that name ("headless", "qt", "windows") for scripts; null likewise.
forms::DrivenToolkit* toolkitForScripts(std::string_view name, std::string& problem);

}  // namespace kvrnstep::plugin
