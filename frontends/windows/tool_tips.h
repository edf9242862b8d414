#pragma once

#include <windows.h>

#include <string_view>

#include "handle.h"

namespace kvrnstep::windows {

/// The window that shows the tool tips of another one's controls.
WindowHandle toolTipsOf(HWND window);
/// @param text empty: none at present
void addToolTip(HWND tips, HWND control, std::u16string_view text);
/// The new one is shown when the mouse has rested again.
void changeToolTip(HWND tips, HWND control, std::u16string_view text);

}  // namespace kvrnstep::windows
