#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <type_traits>

namespace kvrnstep::qt {

/// Draws a line around a widget, as wide as a pixel of the design where the screen has whole ones
/// for it, and never narrower than a dot of the screen.
///
/// At a scale such as 1.25 the edges of widgets lie between the dots of the screen, and a style's
/// frame falls outside of what may be painted: sides of it are missing.
/// @param painter begun on the widget
void drawSharpFrame(QPainter& painter, const QWidget& widget);

/// Whether the edges of widgets may lie between the dots of the screen.
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
    // The area's own paint event is for the frame, its viewport has another one.
    if (event->type() == QEvent::Paint && hasFractionalScale(*this)) {
      QPainter painter(this);
      drawSharpFrame(painter, *this);
    }
    return handled;
  }
};

}  // namespace kvrnstep::qt
