#include "driven/driven_toolkit.h"
#include "forms/front_end_module.h"
#include "platform/thread_record.h"
#include "windows_toolkit.h"

extern "C" {
KvrnstepFrontEnd kvrnstepFrontEnd;
KvrnstepDrivenFrontEnd kvrnstepDrivenFrontEnd;
}

extern "C" kvrnstep::forms::Toolkit* kvrnstepFrontEnd(std::string* /*problem*/) {
  return &kvrnstep::platform::ofThisThread<kvrnstep::windows::WindowsToolkit>();
}

extern "C" kvrnstep::forms::DrivenToolkit* kvrnstepDrivenFrontEnd(std::string* /*problem*/) {
  static kvrnstep::windows::DrivenWindowsToolkit toolkit;
  return &toolkit;
}
