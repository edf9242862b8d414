#include "forms/toolkit.h"
#include "platform/thread_record.h"
#include "windows_toolkit.h"

extern "C" KvrnstepFrontEnd kvrnstepFrontEnd;

extern "C" kvrnstep::forms::Toolkit* kvrnstepFrontEnd(std::string* /*problem*/) {
  return &kvrnstep::platform::ofThisThread<kvrnstep::windows::WindowsToolkit>();
}
