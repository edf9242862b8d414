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
/// The font of a text box: the named one, or a similar one if it is not installed. Without a name
/// it is the caption font; 0 points is the height of captions.
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
/// Whether the palette tells windows, boxes and buttons apart by their outlines alone.
bool isHighContrast(const QPalette& palette);
/// What windows are drawn with besides the colours of their palette.
struct Shades {
  QColor outline;          ///< around boxes, buttons and marks …
  QColor disabledOutline;  ///< … and around those that are disabled
  QColor button;           ///< the ground of buttons
  QColor accent;           ///< the ground of the main button and of marks …
  QColor onAccent;         ///< … what is drawn on it …
  QColor accentOutline;    ///< … and its outline
  QColor focus;            ///< around what has the keyboard
  QColor link;
  QColor hoverLink;    ///< a link under the mouse …
  QColor hoverGround;  ///< … and what is behind it
};
/// These colours can be seen on the palette's window. They are made once for each palette.
const Shades& shadesOf(const QPalette& palette);
/// A colour with some of another one in it.
QColor mixed(const QColor& color, const QColor& other, int percent);
/// Black or white, whichever is easier to read on the ground.
QColor textOn(const QColor& ground);
/// The colour, made lighter or darker until it can be told apart from the ground.
QColor visibleOn(const QColor& ground, const QColor& color);

/// The picture at this size in logical pixels, for a display of this density; on a dark ground
/// another drawing of it where there is one, and in the palette's own colours where that is one of
/// high contrast.
QPixmap picture(forms::Picture picture, QSize size, double pixelRatio, const QPalette& palette);
/// The picture with one colour in place of all that is dark in it, and the other one in place
/// of white.
QPixmap inColors(const QPixmap& picture, const QColor& marks, const QColor& ground);
/// The picture as an icon of a button.
QIcon pictureIcon(forms::Picture picture);
/// The program's icon, in all the sizes in which desktops show it with a window.
const QIcon& windowIcon();
/// The mouse cursor of that resource; the usual one for an unknown one.
QCursor cursorOf(int resourceId, double pixelRatio);

/// Draws a window and its controls in our style, in the application's colours. The style of the
/// application is not used, because the controls have fixed sizes, and only our style leaves room
/// for their texts.
void useWindowStyle(QWidget& window);

}  // namespace kvrnstep::qt
