#include "plugin/front_end.h"

#include "plugin/front_end_source.h"

namespace kvrnstep::plugin {

namespace {

struct LoadedFrontEnd {
  forms::Toolkit* toolkit = nullptr;
  std::unique_ptr<forms::Stage> stage;
};

LoadedFrontEnd& loaded() {
  static LoadedFrontEnd frontEnd;
  return frontEnd;
}

}  // namespace

forms::Toolkit* frontEnd(std::string& problem) {
  LoadedFrontEnd& current = loaded();
  if (current.toolkit == nullptr) current.toolkit = toolkitForPeople(problem);
  return current.toolkit;
}

forms::Stage* stageFrontEnd(std::string_view name, forms::Pilot& pilot, forms::Audience& audience,
                            std::string& problem) {
  auto* toolkit = toolkitForScripts(name, problem);
  if (toolkit == nullptr) return nullptr;
  LoadedFrontEnd& current = loaded();
  current.stage = std::make_unique<forms::Stage>(*toolkit, pilot, audience);
  current.toolkit = current.stage.get();
  return current.stage.get();
}

}  // namespace kvrnstep::plugin
