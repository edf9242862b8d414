#pragma once

#include <windows.h>

#include <string>

namespace kvrnstep::windows {

/// Replaces what is on the clipboard. False: another program kept it.
bool putOnClipboard(const std::u16string& text, HWND owner);

}  // namespace kvrnstep::windows
