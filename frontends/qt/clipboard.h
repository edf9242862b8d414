#pragma once

#include <QString>

namespace kvrnstep::qt {

/// Replaces what is on the clipboard by the text, and makes it stay there when the dialog has
/// closed and the process has ended.
void putOnClipboard(const QString& text);

}  // namespace kvrnstep::qt
