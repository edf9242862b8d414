#include <utility>

#include "forms/front_end_module.h"
#include "platform/module.h"
#include "plugin/front_end_source.h"
#include "plugin/plugin_folder.h"
#include "text/paths.h"
#include "text/text.h"

namespace kvrnstep::plugin {

namespace {

/// Loads a front-end module and calls the function by which it hands out its toolkit.
template <class Function>
auto toolkitOf(const std::string& module, const char* symbol, std::string& problem)
    -> decltype(std::declval<Function*>()(&problem)) {
  const std::u16string path = text::inFolder(GetPluginFolder(), text::fromAscii(module + ".so"));
  void* library = platform::loadModule(path, problem);
  if (library == nullptr) return nullptr;
  auto* function = reinterpret_cast<Function*>(platform::symbolOf(library, symbol));
  if (function == nullptr) {
    problem = module + " is no front end";
    return nullptr;
  }
  return function(&problem);
}

}  // namespace

forms::Toolkit* toolkitForPeople(std::string& problem) {
  return toolkitOf<KvrnstepFrontEnd>("kvrnstep-qt", forms::kFrontEndSymbol, problem);
}

forms::DrivenToolkit* toolkitForScripts(std::string_view name, std::string& problem) {
  return toolkitOf<KvrnstepDrivenFrontEnd>("kvrnstep-" + std::string(name) + "-driven",
                                           forms::kDrivenFrontEndSymbol, problem);
}

}  // namespace kvrnstep::plugin
