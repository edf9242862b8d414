#pragma once

#include <string>
#include <string_view>

#include "forms/toolkit.h"

/// Where front ends come from: modules in the plug-in's folder, or, on Windows and for people, the
/// plug-in itself.
namespace kvrnstep::plugin {

/// The front end for people on the calling thread. Null with the reason in `problem`, in one line,
/// where it cannot show a window.
forms::Toolkit* toolkitForPeople(std::string& problem);

/// Loads a module of the plug-in's folder. @param name without its extension
/// @return the address of what it exports as `symbol`; null with the reason in `problem`
void* loadedSymbol(const std::string& name, const char* symbol, std::string& problem);

}  // namespace kvrnstep::plugin
