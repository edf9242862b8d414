#include "driven_toolkit.h"
#include "forms/front_end_module.h"
#include "qt_application.h"

extern "C" __attribute__((visibility("default"))) KvrnstepDrivenFrontEnd kvrnstepDrivenFrontEnd;

extern "C" kvrnstep::forms::DrivenToolkit* kvrnstepDrivenFrontEnd(std::string* problem) {
  if (!kvrnstep::qt::provideApplication(*problem)) return nullptr;
  static kvrnstep::qt::DrivenQtToolkit toolkit;
  return &toolkit;
}
