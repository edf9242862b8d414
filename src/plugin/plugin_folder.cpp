#include "plugin/plugin_folder.h"

#include "platform/files.h"
#include "platform/module.h"

namespace kvrnstep::plugin {

std::u16string GetPluginFolder() {
  return platform::withoutTrailingSeparator(platform::moduleFolder());
}

}  // namespace kvrnstep::plugin
