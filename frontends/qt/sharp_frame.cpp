#include "sharp_frame.h"

#include <QPalette>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace kvrnstep::qt {

namespace {

/// Where the widget may be painted, in dots of the screen. Qt rounds its place and its size
/// separately.
QRect dotsOf(const QWidget& widget, const QTransform& toDots) {
  const QRectF exact = toDots.mapRect(QRectF(widget.rect()));
  const int left = qRound(exact.left());
  const int top = qRound(exact.top());
  const int right = std::min(left + qRound(exact.width()), qRound(exact.right()));
  const int bottom = std::min(top + qRound(exact.height()), qRound(exact.bottom()));
  return {QPoint(left, top), QSize(right - left, bottom - top)};
}

}  // namespace

void drawSharpFrame(QPainter& painter, const QWidget& widget) {
  // Fusion's own frames are of this colour.
  constexpr int kDarker = 130;
  const QColor color = widget.palette().color(QPalette::Window).darker(kDarker);
  const QTransform toDots = painter.deviceTransform();
  const QRect dots = dotsOf(widget, toDots);
  const int width = std::max(1, static_cast<int>(std::floor(widget.devicePixelRatio())));
  const QRect sides[] = {{dots.left(), dots.top(), dots.width(), width},
                         {dots.left(), dots.bottom() - width + 1, dots.width(), width},
                         {dots.left(), dots.top(), width, dots.height()},
                         {dots.right() - width + 1, dots.top(), width, dots.height()}};
  const QTransform fromDots = toDots.inverted();
  for (const QRect& side : sides) painter.fillRect(fromDots.mapRect(QRectF(side)), color);
}

bool hasFractionalScale(const QWidget& widget) {
  const double scale = widget.devicePixelRatio();
  return scale != std::floor(scale);
}

}  // namespace kvrnstep::qt
