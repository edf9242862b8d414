#include "plugin/plugin_folder.h"

#include "platform/module.h"
#include "text/paths.h"

namespace kvrnstep::plugin {

std::u16string GetPluginFolder() {
  return text::withoutTrailingSeparator(platform::moduleFolder());
}

}  // namespace kvrnstep::plugin
