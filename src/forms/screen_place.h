#pragma once

#include <span>

#include "forms/control.h"

namespace kvrnstep::forms {

/// Where a window is shown whose stored place may be off the screens. It stays there if all of it
/// can be seen. Otherwise it moves onto the screen that it is on or next to, no further than
/// needed. If it is larger than that screen its right and its bottom are cut off, because the title
/// bar and the menu bar are at the left and the top.
/// @param wanted the outside of the window; all are in the same unit
/// @param screens what each screen has for windows; without any, nothing is known
Rect placeOnScreen(const Rect& wanted, std::span<const Rect> screens);

}  // namespace kvrnstep::forms
