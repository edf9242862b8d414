#include "driving/driven_module.h"
#include "headless_toolkit.h"

KVRNSTEP_DRIVEN_MODULE kvrnstep::driving::ScriptStage* kvrnstepDrivenFrontEnd(
    kvrnstep::driving::Player* player, kvrnstep::driving::ContextFunction* context,
    std::string* /*problem*/) {
  return kvrnstep::driving::stageFor<kvrnstep::headless::HeadlessToolkit>(*player, *context);
}
