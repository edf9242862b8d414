#pragma once

#include <string>

#include "forms/toolkit.h"

/// The front end that draws the plug-in's windows. It is loaded by the first call that shows a
/// window, never before. Where there is none, `problem` says why in one line, and the next call
/// tries again.
namespace kvrnstep::plugin {

/// The front end for the calling thread; null when it cannot show a window.
forms::Toolkit* frontEnd(std::string& problem);

/// From now on all calls use this front end.
void useFrontEnd(forms::Toolkit& toolkit);

/// The front end for people: a module in the plug-in's folder, or on Windows a part of the plug-in.
forms::Toolkit* toolkitForPeople(std::string& problem);

/// The address of what a module in the plug-in's folder exports as `symbol`; null when that fails.
/// @param name the module's, without extension
void* loadedSymbol(const std::string& name, const char* symbol, std::string& problem);

}  // namespace kvrnstep::plugin
