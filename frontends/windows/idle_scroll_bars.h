#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// Hides those scroll bars of an edit control of several lines by which nothing can be scrolled. By
/// itself the control would show them disabled.
/// @param wraps whether the control breaks lines at its right edge
void fitScrollBars(HWND edit, bool wraps);

}  // namespace kvrnstep::windows
