#pragma once

#include <vector>

#include "forms/window.h"

namespace kvrnstep::forms {

/// The visible controls of a window in the order in which the eye meets them: rows from top to
/// bottom, each from left to right, the contents of a container together. Menus are left out.
std::vector<Control*> readingOrder(const Window& window);

/// The same, but those controls first whose turn is declared.
std::vector<Control*> tabOrder(const Window& window);

}  // namespace kvrnstep::forms
