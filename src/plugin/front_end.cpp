#include "plugin/front_end.h"

#include "driving/driven_module.h"
#include "platform/module.h"
#include "plugin/front_end_source.h"
#include "plugin/host_context.h"
#include "plugin/plugin_folder.h"
#include "text/paths.h"
#include "text/text.h"

namespace kvrnstep::plugin {

namespace {

/// The one that a script plays on, or null.
forms::Toolkit*& stage() {
  static forms::Toolkit* current = nullptr;
  return current;
}

}  // namespace

void* loadedSymbol(const std::string& name, const char* symbol, std::string& problem) {
  const std::u16string path =
      GetPluginFolder() + text::kSeparator + text::fromAscii(name) + platform::kModuleExtension;
  void* module = platform::loadModule(path, problem);
  void* found = module == nullptr ? nullptr : platform::symbolOf(module, symbol);
  if (module != nullptr && found == nullptr) problem = name + " is no front end";
  return found;
}

forms::Toolkit* frontEnd(std::string& problem) {
  return stage() != nullptr ? stage() : toolkitForPeople(problem);
}

driving::Stage* drivenFrontEnd(std::string_view name, driving::Player& player,
                               std::string& problem) {
  auto* function = reinterpret_cast<KvrnstepDrivenFrontEnd*>(loadedSymbol(
      "kvrnstep-" + std::string(name) + "-driven", driving::kDrivenFrontEndSymbol, problem));
  if (function == nullptr) return nullptr;
  driving::ScriptStage* found = function(&player, hostContext, &problem);
  if (found != nullptr) stage() = found;
  return found;
}

}  // namespace kvrnstep::plugin
