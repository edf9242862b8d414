#pragma once

#include <string>

#include "platform/module.h"
#include "text/paths.h"

namespace kvrnstep::plugin {

/// The folder from which the plug-in was loaded, without a trailing separator.
inline std::u16string GetPluginFolder() {
  return text::withoutTrailingSeparator(platform::moduleFolder());
}

}  // namespace kvrnstep::plugin
