#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QWidget>

#include "forms/control.h"

namespace kvrnstep::qt {

/// The picture at this size in logical pixels, for a display of this density.
QPixmap picture(forms::Picture picture, QSize size, double pixelRatio);

/// The picture as an icon of a button.
QIcon pictureIcon(forms::Picture picture);

/// The mouse cursor of that resource; the usual one for an unknown one.
QCursor cursorOf(int resourceId, double pixelRatio);

/// Gives a widget the mouse cursor of that resource; 0 is the usual one.
void applyCursor(QWidget& widget, int resourceId);

QIcon windowIcon();

}  // namespace kvrnstep::qt
