#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// While it lives, windows that this thread makes have the common controls of the module's manifest
/// and the scale of the monitor that they are on, even if the host's windows have not.
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
