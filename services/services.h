#pragma once

#include <cstddef>

/// What the modules of this folder export.
extern "C" {

/// Hands a text to the user's default printer as one job of plain text; returns when the scheduler
/// has it. Font, margins, orientation and copies are the queue's and the user's settings.
/// `text` is UTF-8 with CR LF line ends, `length` its size in bytes. False: there is no printer or
/// no scheduler, or the scheduler does not take the job within six seconds. Then nothing stays in
/// the queue, and nothing is shown.
bool kvrnstepPrint(const char* text, std::size_t length);

/// Starts a sound and returns at once; what cannot be played is silent.
/// @param path a sound file, in UTF-8
/// @param giveWay 0 ends a sound that is playing; otherwise nothing is played while another sound
/// plays
void kvrnstepPlaySound(const char* path, int giveWay);
}
