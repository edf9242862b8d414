#pragma once

#include <QPainter>
#include <QProxyStyle>

namespace kvrnstep::qt {

/// How windows are drawn: as Qt's Fusion draws them, but flat, with outlines that can be seen on
/// every ground, thin scroll bars, and one kind of ring around what has the keyboard.
class WindowStyle : public QProxyStyle {
 public:
  WindowStyle() : QProxyStyle(QStringLiteral("fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                     SubControl part, const QWidget* widget) const override;
  /// Keeps the text of a wide box off the ring.
  [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                     const QWidget* widget) const override;
  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const override;
  /// The pictures of messages.
  [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                   const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

/// A box with an outline.
struct Box {
  QBrush ground = Qt::NoBrush;
  QColor outline;
  int width = 1;     ///< of the outline, in logical pixels: rounded down to dots of the screen
  double round = 3;  ///< radius of the corners
};
/// The radius of the corners of boxes and lists: what they show would cover rounder ones.
inline constexpr double kSquare = 1;
/// Draws it inside the rectangle. All sides are on dots of the screen, also at a scale such as 1.25
/// that has the edges of widgets between them: what a style draws there may be outside of what may
/// be painted.
/// @param painter begun on a widget
void drawBox(QPainter& painter, const QRect& rect, const Box& box);

/// The two arms of an arrow head that points up or down.
void drawArrowHead(QPainter& painter, const QRect& within, bool up, const QColor& color);

}  // namespace kvrnstep::qt
