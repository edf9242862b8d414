#include "plugin/front_end.h"

#include "driving/driven_module.h"
#include "platform/module.h"
#include "plugin/host_context.h"
#include "plugin/plugin_folder.h"
#include "text/text.h"

namespace kvrnstep::plugin {

namespace {

/// The stage that a script plays on; null in ordinary use.
forms::Toolkit* stage = nullptr;

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
  return stage != nullptr ? stage : toolkitForPeople(problem);
}

driving::Stage* drivenFrontEnd(const std::string& name, driving::Player& player,
                               std::string& problem) {
  auto* function = reinterpret_cast<KvrnstepDrivenFrontEnd*>(
      loadedSymbol("kvrnstep-" + name + "-driven", driving::kDrivenFrontEndSymbol, problem));
  driving::ScriptStage* found =
      function == nullptr ? nullptr : function(&player, hostContext, &problem);
  if (found != nullptr) stage = found;
  return found;
}

}  // namespace kvrnstep::plugin
