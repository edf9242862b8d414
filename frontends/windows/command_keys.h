#pragma once

#include <windows.h>

#include <optional>

#include "forms/keyboard.h"

namespace kvrnstep::windows {

/// The command key that a message tells of, if any.
std::optional<forms::CommandKey> commandKeyOf(const MSG& message);

/// The letter, in upper case, that was pressed with Alt; 0 for other messages.
char16_t letterWithAlt(const MSG& message);

}  // namespace kvrnstep::windows
