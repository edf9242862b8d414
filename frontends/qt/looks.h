#pragma once

#include <QColor>
#include <QCursor>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <string_view>

#include "forms/control.h"

/// Fonts, colours, pictures and the style of what is drawn.
namespace kvrnstep::qt {

/// The font of captions. It is narrow and 11 logical pixels high, because the places of the
/// controls are given.
QFont captionFont();
/// The font of a text box: the named one, or a close relative where it is not installed. Without
/// a name it is the caption font; 0 points is the height of captions.
QFont boxFont(std::u16string_view name, float points);
/// Gives a widget a font unless it has inherited that one.
void useFont(QWidget& widget, const QFont& font);
/// The caption font, made so narrow or small that the text is no wider than `width` pixels.
/// Measuring takes long, so the answers are kept.
QFont fittedCaptionFont(const QString& text, int width);

/// The colour of a control, 0x00BBGGRR or 0x80000000 + n for the system's colour n, on this
/// palette.
QColor colorOf(std::int32_t color, const QPalette& palette);
/// Whether windows of this palette are dark.
bool isDark(const QPalette& palette);
/// The palette's link colour, made lighter or darker until it can be read on the window.
QColor readableLink(const QPalette& palette);

/// The picture at this size in logical pixels, for a display of this density.
QPixmap picture(forms::Picture picture, QSize size, double pixelRatio);
/// The picture as an icon of a button or a window.
QIcon pictureIcon(forms::Picture picture);
/// The mouse cursor of that resource; the usual one for an unknown one.
QCursor cursorOf(int resourceId, double pixelRatio);

/// Draws a window and all that it holds in a style that leaves room for texts in controls of the
/// given sizes: the application's own one if it does, and otherwise Qt's Fusion, in the
/// application's colours.
void useCompactStyle(QWidget& window);

}  // namespace kvrnstep::qt
