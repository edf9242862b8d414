#include <exception>

#include "player.h"

/// Starts a sound and returns at once; what cannot be played is silent.
/// @param path a sound file, in UTF-8
/// @param giveWay 0 ends a sound that is playing; otherwise nothing is played while one is
extern "C" __attribute__((visibility("default"))) void kvrnstepPlaySound(const char* path,
                                                                         int giveWay) {
  try {
    if (path != nullptr) kvrnstep::sound::thePlayer().play({path, giveWay != 0});
  } catch (const std::exception&) {
    // Without memory for it there is no sound.
  }
}
