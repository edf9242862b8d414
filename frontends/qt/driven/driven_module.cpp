#include "driving/driven_module.h"

#include "qt_application.h"
#include "qt_driver.h"

KVRNSTEP_DRIVEN_MODULE kvrnstep::driving::ScriptStage* kvrnstepDrivenFrontEnd(
    kvrnstep::driving::Player* player, kvrnstep::driving::ContextFunction* context,
    std::string* problem) {
  if (!kvrnstep::qt::provideApplication(*problem)) return nullptr;
  return kvrnstep::driving::stageFor<kvrnstep::qt::QtDriver>(*player, *context);
}
