#pragma once

#include <windows.h>

#include <string>

#include "forms/toolkit.h"

/// Where texts and sounds go besides the screen.
namespace kvrnstep::windows {

/// Replaces what is on the clipboard, unless another program keeps it.
void putOnClipboard(const std::u16string& text, HWND owner);

/// Prints a text on the default printer as one document, from the top of the first page, in the
/// printer's own font. Nothing happens without a printer, or when it refuses.
void printText(const std::u16string& text);

void playSound(const std::u16string& file, forms::SoundMode mode);

}  // namespace kvrnstep::windows
