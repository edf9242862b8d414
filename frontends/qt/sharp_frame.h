#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <type_traits>

namespace kvrnstep::qt {

/// Draws a line around a widget, one logical pixel wide, rounded down to dots of the screen, and at
/// least one dot.
///
/// At a scale such as 1.25 the edges of widgets are between the dots of the screen. Sides of the
/// frame that a style draws are missing then, because they are outside of what may be painted.
/// @param painter begun on the widget
void drawSharpFrame(QPainter& painter, const QWidget& widget);

/// Whether the edges of widgets may be between the dots of the screen.
bool hasFractionalScale(const QWidget& widget);

/// An area with a frame that has all its sides at every scale.
template <class Area>
class SharpFrame : public Area {
  static_assert(std::is_base_of_v<QAbstractScrollArea, Area>);

 public:
  using Area::Area;

 protected:
  bool event(QEvent* event) override {
    const bool handled = Area::event(event);
    // The area paints its frame only; what it shows is painted by its viewport.
    if (event->type() == QEvent::Paint && hasFractionalScale(*this)) {
      QPainter painter(this);
      drawSharpFrame(painter, *this);
    }
    return handled;
  }
};

}  // namespace kvrnstep::qt
