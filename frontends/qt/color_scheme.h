#pragma once

#include <QColor>
#include <QPalette>
#include <QTimer>

namespace kvrnstep::qt {

/// The wishes of a desktop for the windows of its programs.
struct ColorScheme {
  bool dark = false;
  bool highContrast = false;
  QColor accent{};  ///< invalid: none
};

/// The wishes of this desktop: from GTK_THEME, from its portal, or from the settings of GTK. Needs
/// the application object, and takes a fifth of a second at most.
ColorScheme desktopScheme();

/// Starts the timer whenever the desktop's portal reports a changed setting; never if no portal
/// runs.
void ringWhenDesktopChanges(QTimer& bell);

/// Colours of which every text has a contrast of 4.5 with its ground, disabled ones too.
QPalette paletteOf(const ColorScheme& scheme);

}  // namespace kvrnstep::qt
