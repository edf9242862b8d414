#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <string_view>

namespace kvrnstep::qt {

/// The font of captions: narrow and 11 logical pixels high, as the places of the controls want it.
QFont captionFont();

/// The font of a text box: the named one, or a close relative where it is not installed. Without
/// a name it is the caption font; 0 points is the height of captions.
QFont boxFont(std::u16string_view name, float points);

/// Gives a widget a font unless it has inherited that one.
void useFont(QWidget& widget, const QFont& font);

/// The caption font, made so narrow or small that the text is no wider than `width` pixels.
/// Measuring takes long, so the answers are kept.
QFont fittedCaptionFont(const QString& text, int width);

}  // namespace kvrnstep::qt
