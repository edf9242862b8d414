#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// Hides the scroll bars of an edit control of several lines while they could scroll nothing. The
/// control itself would show them disabled.
/// @param wraps whether the control breaks lines at its right edge
void fitScrollBars(HWND edit, bool wraps);

}  // namespace kvrnstep::windows
