#pragma once

#include <windows.h>

#include <optional>

#include "forms/keyboard.h"

namespace kvrnstep::windows {

/// The key of a message that does something else than type or move a caret; nothing for others.
std::optional<forms::CommandKey> commandKeyOf(const MSG& message);

/// The letter, in upper case, that a message brings together with Alt; 0 for other messages.
char16_t letterWithAlt(const MSG& message);

}  // namespace kvrnstep::windows
