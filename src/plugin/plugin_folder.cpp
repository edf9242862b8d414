#include "plugin/plugin_folder.h"

#include "platform/module.h"

namespace kvrnstep::plugin {

std::u16string GetPluginFolder() {
  return platform::moduleFolder();
}

}  // namespace kvrnstep::plugin
