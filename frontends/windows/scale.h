#pragma once

#include <windows.h>

/// Sizes are thought of in 1/96 inch and shown in the pixels of the monitor. What old systems lack
/// is looked up when it is first wanted.
namespace kvrnstep::windows {

inline constexpr int kNominalDpi = 96;

/// Dots per inch of the monitor that the window is on, or of the whole desktop.
int dpiOf(HWND window);
int desktopDpi();

/// Pixels of so many 1/96 inch, and back.
int toPixels(double units, int dpi);
double fromPixels(int pixels, int dpi);

/// The outside of a window whose inside has this size, menu bar not counted.
SIZE outsideOf(SIZE inside, DWORD style, bool menu, int dpi);

/// Has the windows that this thread makes scaled by the monitor they are on; what was before.
HANDLE scaleThreadByMonitor();
void restoreThreadScaling(HANDLE before);

}  // namespace kvrnstep::windows
