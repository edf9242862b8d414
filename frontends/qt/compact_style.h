#pragma once

#include <QWidget>

namespace kvrnstep::qt {

/// Has a window and all that it holds drawn by a style whose controls leave room for their texts at
/// the places that the windows' designs give them: the application's own one, where it does, and
/// otherwise Qt's Fusion, in the application's colours.
void useCompactStyle(QWidget& window);

}  // namespace kvrnstep::qt
