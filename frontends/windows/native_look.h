#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// While it lives, windows that this thread makes have the common controls of the module's manifest
/// and are scaled by the monitor that they are on, whatever the host's windows do.
class NativeLook {
 public:
  NativeLook();
  ~NativeLook();
  NativeLook(const NativeLook&) = delete;
  NativeLook& operator=(const NativeLook&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool activated_ = false;
  DPI_AWARENESS_CONTEXT hostScaling_;
};

}  // namespace kvrnstep::windows
