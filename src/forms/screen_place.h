#pragma once

#include <span>

#include "forms/control.h"

namespace kvrnstep::forms {

/// Where a window is shown that is wanted at a place of which the screens may show little or
/// nothing: where it is wanted if all of it can be seen there, and otherwise on the screen that it
/// is on or next to, no further away than needed. What does not fit there lies beyond its right and
/// bottom edges, because the title bar and the menu bar are at the left and the top.
/// @param wanted the outside of the window; all are in the same unit
/// @param screens what each screen has for windows; without any, nothing is known
Rect placeOnScreen(const Rect& wanted, std::span<const Rect> screens);

}  // namespace kvrnstep::forms
