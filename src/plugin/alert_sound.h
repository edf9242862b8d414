#pragma once

#include <cstdint>
#include <string>

#include "forms/toolkit.h"
#include "plugin/host_context.h"

namespace kvrnstep::plugin {

/// Starts a sound, if the host allows sounds at all. Never falls back to a default sound.
/// @param bytMode 0 replaces a sound that is playing, 1 gives way to it; others play nothing
void PlayAlertSound(forms::Toolkit& toolkit, const HostContext& host,
                    const std::u16string& sSoundFile, std::uint8_t bytMode);

}  // namespace kvrnstep::plugin
