#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/window.h"
#include "kvrnstep/driving.hpp"
#include "plugin/host_context.h"

/// The properties of controls and windows, by the names that scripts give them.
namespace kvrnstep::driving {

/// What a control of the window holds, or for null the window itself; nothing where it has no
/// property of that name.
std::optional<Value> held(forms::Window& window, forms::Control* control,
                          std::string_view property);
/// A field of the host context.
std::optional<Value> held(const plugin::HostContext& context, std::string_view field);

/// Assigns a property as the window's own code does. False: there is no such property, it cannot be
/// assigned, or the word is not a value of it.
bool assign(forms::Window& window, forms::Control* control, std::string_view property,
            const std::u16string& word);

/// Whether what a front end shows agrees with what the control holds; some values look alike.
bool looksLike(const forms::Control& control, std::string_view property, const Value& shown);

}  // namespace kvrnstep::driving
