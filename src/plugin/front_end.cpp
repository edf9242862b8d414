#include "plugin/front_end.h"

#include "forms/front_end_module.h"
#include "platform/files.h"
#include "platform/module.h"
#include "plugin/plugin_folder.h"
#include "text/text.h"

namespace kvrnstep::plugin {

namespace {

constexpr std::string_view kUsualFrontEnd = "qt";

struct LoadedFrontEnd {
  forms::Toolkit* toolkit = nullptr;
  std::unique_ptr<forms::Stage> stage;
};

LoadedFrontEnd& loaded() {
  static LoadedFrontEnd frontEnd;
  return frontEnd;
}

/// Loads a front-end module and calls the function by which it hands out its toolkit.
template <class Function>
auto toolkitOf(const std::string& module, const char* symbol, std::string& problem)
    -> decltype(std::declval<Function*>()(&problem)) {
  const std::u16string path =
      GetPluginFolder() + platform::kSeparator + text::fromAscii(module + ".so");
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

forms::Toolkit* frontEnd(std::string& problem) {
  LoadedFrontEnd& current = loaded();
  if (current.toolkit == nullptr) {
    current.toolkit = toolkitOf<KvrnstepFrontEnd>("kvrnstep-" + std::string(kUsualFrontEnd),
                                                  forms::kFrontEndSymbol, problem);
  }
  return current.toolkit;
}

forms::Stage* stageFrontEnd(std::string_view name, forms::Pilot& pilot, forms::Audience& audience,
                            std::string& problem) {
  auto* toolkit = toolkitOf<KvrnstepDrivenFrontEnd>("kvrnstep-" + std::string(name) + "-driven",
                                                    forms::kDrivenFrontEndSymbol, problem);
  if (toolkit == nullptr) return nullptr;
  LoadedFrontEnd& current = loaded();
  current.stage = std::make_unique<forms::Stage>(*toolkit, pilot, audience);
  current.toolkit = current.stage.get();
  return current.stage.get();
}

}  // namespace kvrnstep::plugin
