#pragma once

#include <QWidget>

namespace kvrnstep::qt {

/// Keeps a window of ours in front of the window of this process that the user comes from,
/// whichever toolkit that one belongs to. On X only: Wayland knows no such thing.
void stayInFrontOfHost(const QWidget& window);

}  // namespace kvrnstep::qt
