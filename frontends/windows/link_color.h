#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// The system's colour of what can be clicked, as far away from the windows' ground as reading
/// needs.
COLORREF linkColor();

}  // namespace kvrnstep::windows
