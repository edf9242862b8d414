#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// While it lives, what this thread makes has the look and the scaling that the module wants,
/// whatever the host's windows have: the common controls of the module's own manifest, and pixels
/// that are those of the screen.
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
