#pragma once

#include <string>

/// Printing and sound lie in modules of their own beside this one, so that nobody loads what they
/// need before something is printed or heard.
namespace kvrnstep::qt {

/// Hands the text to the default printer as one job; false when there is none.
bool printText(const std::u16string& text);

/// Starts a sound; what cannot be played is silent.
/// @param giveWay leaves a sound that is playing alone, and plays nothing then
void startSound(const std::u16string& file, bool giveWay);

}  // namespace kvrnstep::qt
