#pragma once

#include <string>

namespace kvrnstep::plugin {

/// The folder from which the plug-in was loaded, without a trailing separator.
std::u16string GetPluginFolder();

}  // namespace kvrnstep::plugin
