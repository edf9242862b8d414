#include "shapes.h"

#include <QPixmapCache>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <initializer_list>

namespace kvrnstep::qt {

namespace {

enum Shape : int { kBox, kCircle, kMark, kArrowHead };

/// The rectangle in dots of the screen. Qt rounds the place and the size of a widget separately.
QRect dotsOf(const QRect& rect, const QTransform& toDots) {
  const QRectF exact = toDots.mapRect(QRectF(rect));
  const int left = qRound(exact.left());
  const int top = qRound(exact.top());
  const int right = std::min(left + qRound(exact.width()), qRound(exact.right()));
  const int bottom = std::min(top + qRound(exact.height()), qRound(exact.bottom()));
  return {QPoint(left, top), QSize(right - left, bottom - top)};
}

/// As most boxes are, and much faster than round corners.
void drawSquare(QPainter& painter, const QRect& dots, int width, const Box& box) {
  const QTransform fromDots = painter.deviceTransform().inverted();
  const auto fill = [&](int left, int top, int right, int bottom, const QColor& color) {
    painter.fillRect(fromDots.mapRect(QRectF(left, top, right - left, bottom - top)), color);
  };
  const int right = dots.left() + dots.width();
  const int bottom = dots.top() + dots.height();
  if (box.ground.alpha() > 0) fill(dots.left(), dots.top(), right, bottom, box.ground);
  fill(dots.left(), dots.top(), right, dots.top() + width, box.outline);
  fill(dots.left(), bottom - width, right, bottom, box.outline);
  fill(dots.left(), dots.top(), dots.left() + width, bottom, box.outline);
  fill(right - width, dots.top(), right, bottom, box.outline);
}

QPen markPen(const QColor& color, double width) {
  return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Draws the picture of a shape, which `draw` makes if it is not kept.
/// @param look all that the picture depends on besides the place and the scale of the rectangle
template <class Draw>
void drawKept(QPainter& painter, const QRect& rect, std::initializer_list<qint64> look,
              const Draw& draw) {
  const QTransform toDots = painter.deviceTransform();
  const QRectF exact = toDots.mapRect(QRectF(rect));
  const QRect dots = exact.toAlignedRect();
  if (dots.isEmpty()) return;
  QString key = QStringLiteral("kvrnstep");
  const auto add = [&key](auto value) {
    key += QStringView(std::bit_cast<std::array<char16_t, sizeof value / 2>>(value));
  };
  for (const double value : {toDots.m11(), exact.left() - dots.left(), exact.top() - dots.top(),
                             exact.width(), exact.height()}) {
    add(value);
  }
  for (const qint64 value : look) add(value);
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    picture = QPixmap(dots.size());
    picture.fill(Qt::transparent);
    QPainter pictured(&picture);
    pictured.setRenderHint(QPainter::Antialiasing);
    pictured.setTransform(toDots * QTransform::fromTranslate(-dots.left(), -dots.top()));
    draw(pictured);
    QPixmapCache::insert(key, picture);
  }
  painter.drawPixmap(toDots.inverted().mapRect(QRectF(dots)), picture, QRectF(picture.rect()));
}

}  // namespace

void drawBox(QPainter& painter, const QRect& rect, const Box& box) {
  const QTransform toDots = painter.deviceTransform();
  const double scale = painter.device()->devicePixelRatioF();
  const int width = std::max(1, static_cast<int>(std::floor(box.width * scale)));
  const QRect dots = dotsOf(rect, toDots);
  if (box.round <= kSquare) return drawSquare(painter, dots, width, box);
  drawKept(painter, rect,
           {kBox, box.ground.rgba(), box.outline.rgba(), width, box.width, box.round},
           [&](QPainter& pictured) {
             const double half = width / 2.0;
             const QRectF middle = QRectF(dots).adjusted(half, half, -half, -half);
             const double round = std::max(0.0, box.round - box.width / 2.0);
             pictured.setPen(
                 QPen(box.outline, width / scale, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
             pictured.setBrush(box.ground);
             pictured.drawRoundedRect(toDots.inverted().mapRect(middle), round, round);
           });
}

void drawCircle(QPainter& painter, const QRect& rect, const Box& box, const QColor& dot) {
  constexpr double kDot = 0.2;
  drawKept(painter, rect, {kCircle, box.ground.rgba(), box.outline.rgba(), box.width, dot.rgba()},
           [&](QPainter& pictured) {
             const double size = std::min(rect.width(), rect.height());
             const QPointF middle = QRectF(rect).center();
             pictured.setPen(QPen(box.outline, box.width));
             pictured.setBrush(box.ground);
             pictured.drawEllipse(middle, size / 2 - 0.5, size / 2 - 0.5);
             pictured.setPen(Qt::NoPen);
             pictured.setBrush(dot);
             pictured.drawEllipse(middle, size * kDot, size * kDot);
           });
}

void drawMark(QPainter& painter, const QRect& rect, Mark mark, const QColor& color) {
  drawKept(painter, rect, {kMark, static_cast<int>(mark), color.rgba()}, [&](QPainter& pictured) {
    const auto point = [&rect](double x, double y) {
      return QPointF(rect.x() + x * rect.width(), rect.y() + y * rect.height());
    };
    pictured.setPen(markPen(color, 2));
    if (mark == Mark::Dash) return pictured.drawLine(point(0.28, 0.5), point(0.72, 0.5));
    pictured.drawPolyline(QPolygonF{point(0.25, 0.52), point(0.43, 0.7), point(0.75, 0.3)});
  });
}

void drawArrowHead(QPainter& painter, const QRect& within, bool up, const QColor& color) {
  drawKept(painter, within, {kArrowHead, up ? 1 : 0, color.rgba()}, [&](QPainter& pictured) {
    constexpr double kWide = 3;
    constexpr double kHigh = 1.5;
    constexpr double kPen = 1.1;
    const QPointF middle = QRectF(within).center();
    const double tip = up ? -kHigh : kHigh;
    pictured.setPen(markPen(color, kPen));
    pictured.drawPolyline(QPolygonF{middle + QPointF(-kWide, -tip), middle + QPointF(0, tip),
                                    middle + QPointF(kWide, -tip)});
  });
}

}  // namespace kvrnstep::qt
