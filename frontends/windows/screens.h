#pragma once

#include <windows.h>

#include <vector>

#include "forms/control.h"

namespace kvrnstep::windows {

/// Where the upper left corner of a window is shown that is wanted there: on the monitors, as far
/// as they have room. In pixels of the desktop.
POINT cornerOnScreen(const RECT& wanted);

/// What the task bar and its like leave of each monitor, in pixels of the desktop.
std::vector<forms::Rect> screens();

}  // namespace kvrnstep::windows
