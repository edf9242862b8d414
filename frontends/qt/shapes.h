#pragma once

#include <QColor>
#include <QPainter>

/// What the controls are drawn of. Shapes with smooth edges take long to draw, so Qt's cache keeps
/// pictures of them.
namespace kvrnstep::qt {

/// A box with an outline.
struct Box {
  QColor ground = Qt::transparent;
  QColor outline;
  int width = 1;  ///< of the outline, in logical pixels: rounded down to dots of the screen
  int round = 3;  ///< radius of the corners
};
/// The radius of the corners of boxes and lists: what they show would cover rounder ones.
inline constexpr int kSquare = 1;
/// Draws it inside the rectangle. All sides are on dots of the screen, also at a scale such as 1.25
/// that has the edges of widgets between them: what a style draws there may be outside of what may
/// be painted.
/// @param painter begun on a widget
void drawBox(QPainter& painter, const QRect& rect, const Box& box);

/// Draws a circle in the colours of the box, with a dot in it unless the colour of that is
/// transparent.
void drawCircle(QPainter& painter, const QRect& rect, const Box& box, const QColor& dot);

enum class Mark { Check, Dash };
void drawMark(QPainter& painter, const QRect& rect, Mark mark, const QColor& color);

/// The two arms of an arrow head that points up or down.
void drawArrowHead(QPainter& painter, const QRect& within, bool up, const QColor& color);

}  // namespace kvrnstep::qt
