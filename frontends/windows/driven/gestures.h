#pragma once

#include <functional>

#include "driving/gesture.h"
#include "window_view.h"

namespace kvrnstep::windows {

/// Deals with all that is waiting, and draws what has changed.
using Settle = std::function<void()>;

/// Does with the mouse and the keyboard what a user does to a window. False: the system's windows
/// did not allow it.
bool carryOut(WindowView& view, const driving::Gesture& gesture, const Settle& settle);

bool popUpIsShown(const WindowView& view, const forms::MenuEntry& menu);
/// Picks from the pop-up menu that is open; it has not closed yet when this returns.
bool pickFromPopUp(const WindowView& view, const forms::Control& entry);

}  // namespace kvrnstep::windows
