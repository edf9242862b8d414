#pragma once

#include <cstdint>
#include <string>

#include "forms/toolkit.h"
#include "plugin/host_context.h"

namespace kvrnstep::plugin {

/// Starts a sound, if the host allows sounds at all. Never falls back to a default sound.
/// @param bytMode 0 replaces a sound that is playing, 1 gives way to it; others play nothing
inline void PlayAlertSound(forms::Toolkit& toolkit, const HostContext& host,
                           const std::u16string& sSoundFile, std::uint8_t bytMode) {
  if (!host.bolIsSoundAvailable || bytMode > 1) return;
  toolkit.playSound(sSoundFile,
                    bytMode == 0 ? forms::SoundMode::Replace : forms::SoundMode::GiveWay);
}

}  // namespace kvrnstep::plugin
