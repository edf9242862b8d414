#include "forms/toolkit.h"
#include "qt_application.h"
#include "qt_toolkit.h"

extern "C" __attribute__((visibility("default"))) KvrnstepFrontEnd kvrnstepFrontEnd;

extern "C" kvrnstep::forms::Toolkit* kvrnstepFrontEnd(std::string* problem) {
  if (!kvrnstep::qt::provideApplication(*problem)) return nullptr;
  static kvrnstep::qt::QtToolkit toolkit;
  return &toolkit;
}
