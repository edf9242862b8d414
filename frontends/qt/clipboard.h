#pragma once

#include <QString>

namespace kvrnstep::qt {

/// Replaces what is on the clipboard by the text, and takes care that it stays there when the
/// dialog has closed and the process has ended.
void putOnClipboard(const QString& text);

}  // namespace kvrnstep::qt
