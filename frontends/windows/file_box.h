#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "forms/toolkit.h"

namespace kvrnstep::windows {

/// The system's file dialogs. The full path; nothing when they were cancelled.
std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog, HWND owner);
std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog, HWND owner);

}  // namespace kvrnstep::windows
