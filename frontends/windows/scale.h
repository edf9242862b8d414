#pragma once

#include <windows.h>

#include <vector>

#include "forms/control.h"

/// Monitors. Sizes are thought of in 1/96 inch and shown in the pixels of the monitor.
namespace kvrnstep::windows {

inline constexpr int kNominalDpi = 96;

/// Dots per inch of the whole desktop; GetDpiForWindow tells those of a window's monitor.
int desktopDpi();

/// Pixels of so many 1/96 inch, and back.
int toPixels(double units, int dpi);
double fromPixels(int pixels, int dpi);

/// The outside of a window whose inside has this size.
SIZE outsideOf(SIZE inside, DWORD style, bool menu, int dpi);

/// Where the upper left corner of a window is shown that is wanted there: on the monitors, as far
/// as they have room. In pixels of the desktop.
POINT cornerOnScreen(const RECT& wanted);

/// What the task bar and its like leave of each monitor, in pixels of the desktop.
std::vector<forms::Rect> screens();

}  // namespace kvrnstep::windows
