#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "forms/toolkit.h"

namespace kvrnstep::windows {

enum class Purpose : std::uint8_t { Open, Save };

/// The system's file dialogs. The full path; nothing when they were cancelled.
std::optional<std::u16string> chooseFile(Purpose purpose, const forms::FileDialog& dialog,
                                         HWND owner);

}  // namespace kvrnstep::windows
