#include "driving/driven_module.h"

#include "windows_driver.h"

KVRNSTEP_DRIVEN_MODULE kvrnstep::driving::ScriptStage* kvrnstepDrivenFrontEnd(
    kvrnstep::driving::Player* player, kvrnstep::driving::ContextFunction* context,
    std::string* /*problem*/) {
  return kvrnstep::driving::stageFor<kvrnstep::windows::WindowsDriver>(*player, *context);
}
