#pragma once

#include <QColor>
#include <QPalette>
#include <QTimer>

namespace kvrnstep::qt {

/// What a desktop asks of the windows of its programs.
struct ColorScheme {
  bool dark = false;
  bool highContrast = false;
  QColor accent{};  ///< invalid: none
};

/// What this desktop asks for: by GTK_THEME, by its portal or in the settings of GTK. Needs the
/// application; takes a fifth of a second at most.
ColorScheme desktopScheme();

/// Starts the bell whenever the desktop's portal tells of a changed setting. Where no portal runs
/// it never does.
void ringWhenDesktopChanges(QTimer& bell);

/// Colours of which every text has a contrast of 4.5 with its ground, disabled ones too.
QPalette paletteOf(const ColorScheme& scheme);

}  // namespace kvrnstep::qt
