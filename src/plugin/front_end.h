#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/driven_toolkit.h"
#include "forms/stage.h"

/// The front end that draws the plug-in's windows. It is set up on the first call that shows a
/// window, never before.
namespace kvrnstep::plugin {

/// The front end for the calling thread, set up if need be. Null when no window can be shown;
/// `problem` then says why, in one line. What failed is tried again at the next call.
forms::Toolkit* frontEnd(std::string& problem);

/// Sets up the front end of that name ("headless", "qt", "windows") for scripts and puts a stage
/// around it that serves all calls from now on. Null with the reason in `problem` when that fails.
forms::Stage* stageFrontEnd(std::string_view name, forms::Pilot& pilot, forms::Audience& audience,
                            std::string& problem);

}  // namespace kvrnstep::plugin
