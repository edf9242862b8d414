#pragma once

#include <string>
#include <string_view>

#include "forms/toolkit.h"
#include "kvrnstep/driving.hpp"

/// The front end that draws the plug-in's windows. It is set up on the first call that shows a
/// window, never before.
namespace kvrnstep::plugin {

/// The front end for the calling thread, set up if need be. Null when no window can be shown;
/// `problem` then says why, in one line. What failed is tried again at the next call.
forms::Toolkit* frontEnd(std::string& problem);

/// Loads the front end of that name ("headless", "qt", "windows") whose user is the player. It
/// serves all calls from now on. Null with the reason in `problem` when that fails.
driving::Stage* drivenFrontEnd(std::string_view name, driving::Player& player,
                               std::string& problem);

}  // namespace kvrnstep::plugin
