#pragma once

#include <QPalette>
#include <QTimer>

namespace kvrnstep::qt {

/// Whether the desktop asks its programs for dark windows: by its portal, by GTK_THEME or in the
/// settings of GTK. Needs the application; takes a fifth of a second at most.
bool desktopIsDark();

/// Starts the bell whenever the desktop's portal tells of a changed setting. Where no portal runs
/// it never does.
void ringWhenDesktopChanges(QTimer& bell);

/// Colours for the style that Qt uses when no theme tells it otherwise.
QPalette lightPalette();
QPalette darkPalette();

}  // namespace kvrnstep::qt
