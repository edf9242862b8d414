#pragma once

#include <string>

namespace kvrnstep::qt {

/// Makes sure that the process has a QApplication that windows of this thread can use: the host's
/// or, where it has none, one of our own, which then stays until the process ends. False, and one
/// line in `problem`, where there can be none.
bool provideApplication(std::string& problem);

/// Whether the QApplication is our own. Then nobody runs its events between two dialogs.
bool applicationIsOurs();

/// Whether the QApplication shows its windows on a Wayland compositor.
bool isOnWayland();

}  // namespace kvrnstep::qt
