#include "plugin/alert_sound.h"

namespace kvrnstep::plugin {

void PlayAlertSound(forms::Toolkit& toolkit, const HostContext& host,
                    const std::u16string& sSoundFile, std::uint8_t bytMode) {
  if (!host.bolIsSoundAvailable || bytMode > 1) return;
  toolkit.playSound(sSoundFile,
                    bytMode == 0 ? forms::SoundMode::Replace : forms::SoundMode::GiveWay);
}

}  // namespace kvrnstep::plugin
