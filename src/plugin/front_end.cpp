#include "plugin/front_end.h"

#include <atomic>

#include "platform/module.h"
#include "plugin/plugin_folder.h"
#include "text/text.h"

namespace kvrnstep::plugin {

namespace {

/// Null as long as people use the plug-in. Any thread may read it.
std::atomic<forms::Toolkit*> driven = nullptr;

}  // namespace

void* loadedSymbol(const std::string& name, const char* symbol, std::string& problem) {
  const std::u16string path =
      text::inFolder(GetPluginFolder(), text::fromAscii(name) + platform::kModuleExtension);
  void* module = platform::loadModule(path, problem);
  void* found = module == nullptr ? nullptr : platform::symbolOf(module, symbol);
  if (module != nullptr && found == nullptr) problem = name + " is no front end";
  return found;
}

forms::Toolkit* frontEnd(std::string& problem) {
  forms::Toolkit* const ofScript = driven;
  return ofScript != nullptr ? ofScript : toolkitForPeople(problem);
}

void useFrontEnd(forms::Toolkit& toolkit) {
  driven = &toolkit;
}

}  // namespace kvrnstep::plugin
