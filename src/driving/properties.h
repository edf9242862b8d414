#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/window.h"
#include "kvrnstep/driving.hpp"

/// The properties of controls and windows, by the names that scripts give them.
namespace kvrnstep::driving {

/// What a control or a window holds; nothing where it has no property of that name.
std::optional<Value> held(const forms::Control& control, std::string_view property);
std::optional<Value> held(const forms::Window& window, std::string_view property);

/// Assigns a property as the window's own code does. False: it has none of that name, or none that
/// can be assigned, or the word is no value for it.
bool assign(forms::Control& control, std::string_view property, const std::u16string& word);
bool assign(forms::Window& window, std::string_view property, const std::u16string& word);

/// Whether what a front end shows of a property is how it shows what the control holds: some values
/// look alike.
bool looksLike(const forms::Control& control, std::string_view property, const Value& shown);

}  // namespace kvrnstep::driving
