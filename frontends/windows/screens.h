#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// Where the upper left corner of a window is shown that is wanted there: on the monitors, as far
/// as they have room beside the task bar and its like. In pixels of the desktop.
POINT cornerOnScreen(const RECT& wanted);

}  // namespace kvrnstep::windows
