#include "plugin/front_end.h"

#include "plugin/front_end_source.h"

namespace kvrnstep::plugin {

namespace {

/// The one that a script plays on, or null.
std::unique_ptr<forms::Stage>& stage() {
  static std::unique_ptr<forms::Stage> current;
  return current;
}

}  // namespace

forms::Toolkit* frontEnd(std::string& problem) {
  return stage() != nullptr ? stage().get() : toolkitForPeople(problem);
}

forms::Stage* stageFrontEnd(std::string_view name, forms::Pilot& pilot, forms::Audience& audience,
                            std::string& problem) {
  auto* toolkit = toolkitForScripts(name, problem);
  if (toolkit == nullptr) return nullptr;
  stage() = std::make_unique<forms::Stage>(*toolkit, pilot, audience);
  return stage().get();
}

}  // namespace kvrnstep::plugin
