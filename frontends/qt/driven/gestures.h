#pragma once

#include "driving/gesture.h"
#include "window_view.h"

namespace kvrnstep::qt {

/// Does on the window's widgets what a user does. False: the widgets did not allow it.
bool carryOut(WindowView& view, const driving::Gesture& gesture);

}  // namespace kvrnstep::qt
