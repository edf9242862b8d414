#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace kvrnstep::qt {

/// The colour of a control, 0x00BBGGRR or 0x80000000 + n for the system's colour n, on this
/// palette.
QColor colorOf(std::int32_t color, const QPalette& palette);

/// Whether windows of this palette are dark.
bool isDark(const QPalette& palette);

/// The palette's link colour, made lighter or darker until it can be read on the window.
QColor readableLink(const QPalette& palette);

}  // namespace kvrnstep::qt
