#pragma once

#include <string>

namespace kvrnstep::qt {

/// The full path of a file in the folder from which this module was loaded; empty where that is
/// not known.
std::string besideThisModule(const std::string& name);

/// A function of a module in that folder; null where the module is not installed.
void* functionBeside(const std::string& module, const char* name);

}  // namespace kvrnstep::qt
