#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// Has an edit control of one line show it in the middle of its height, where the caption beside it
/// is too. The system's own place is the upper edge, whatever the height.
void centreLine(HWND edit);

}  // namespace kvrnstep::windows
