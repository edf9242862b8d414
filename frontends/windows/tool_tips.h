#pragma once

#include <windows.h>

#include <string_view>

#include "handle.h"

namespace kvrnstep::windows {

/// What shows the yellow notes of a window.
WindowHandle toolTipsOf(HWND window);
void addToolTip(HWND tips, HWND control, std::u16string_view text);

}  // namespace kvrnstep::windows
