#pragma once

#include <windows.h>

#include <vector>

#include "forms/control.h"

/// Monitors and their pixels.
namespace kvrnstep::windows {

inline constexpr int kNominalDpi = 96;

/// Dots per inch by which places on the desktop are counted. A window's monitor may have others.
int desktopDpi();

/// From 1/96 inch to pixels, and back.
int toPixels(double units, int dpi);
double fromPixels(int pixels, int dpi);

/// The size of a window with its frame, given that of its inside.
SIZE outsideOf(SIZE inside, DWORD style, bool menu, int dpi);

/// The upper left corner of a window that is wanted at a place, moved so that the window is on a
/// monitor. In pixels of the desktop.
POINT cornerOnScreen(const RECT& wanted);

/// The work area of each monitor, in pixels of the desktop.
std::vector<forms::Rect> screens();

}  // namespace kvrnstep::windows
