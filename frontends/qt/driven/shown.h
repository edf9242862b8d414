#pragma once

#include <optional>
#include <string_view>

#include "kvrnstep/driving.hpp"
#include "window_view.h"

namespace kvrnstep::qt {

/// What the control's widget really shows of a property; nothing where it does not tell.
std::optional<driving::Value> shown(const WindowView& view, const forms::Control& control,
                                    std::string_view property);

}  // namespace kvrnstep::qt
