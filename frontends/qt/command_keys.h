#pragma once

#include <QKeyEvent>
#include <optional>

#include "forms/keyboard.h"

namespace kvrnstep::qt {

/// What the key does besides typing or moving a caret.
std::optional<forms::CommandKey> commandKey(const QKeyEvent& event);

/// The key's number. It is the same for press and release, even if Shift is released in between.
forms::KeyCode codeOf(const QKeyEvent& event);

}  // namespace kvrnstep::qt
