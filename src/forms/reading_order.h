#pragma once

#include <vector>

#include "forms/window.h"

namespace kvrnstep::forms {

/// The visible controls of a window in the order in which the eye meets them: rows from top to
/// bottom, each from left to right, the contents of a container together. Menus are left out.
std::vector<Control*> readingOrder(const Window& window);

/// The same, but each label right before what it leads to, and those controls first whose turn is
/// declared.
std::vector<Control*> tabOrder(const Window& window);

/// Where the keyboard is when the window opens: the first control in that order that the user can
/// set something with, of a group of option buttons the selected one. Null where there is none.
Control* firstFocus(const Window& window);

}  // namespace kvrnstep::forms
