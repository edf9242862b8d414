#pragma once

#include <string>

namespace kvrnstep::qt {

/// The full path of a file in the folder from which this module was loaded; empty where that is
/// not known.
std::string besideThisModule(const std::string& name);

}  // namespace kvrnstep::qt
