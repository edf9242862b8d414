#include <algorithm>
#include <utility>

#include "forms/view_sync.h"

namespace kvrnstep::forms {

namespace {

/// The distance between two intervals; 0 if they touch.
double gap(double begin, double end, double otherBegin, double otherEnd) {
  return std::max({0.0, otherBegin - end, begin - otherEnd});
}

/// How well the screen suits the window: first how much of the window it shows, then how near it
/// is.
std::pair<double, double> suitability(const Rect& window, const Rect& screen) {
  return {common(window, screen).area(),
          -gap(window.left, window.right(), screen.left, screen.right()) -
              gap(window.top, window.bottom(), screen.top, screen.bottom())};
}

}  // namespace

Rect placeOnScreen(const Rect& wanted, std::span<const Rect> screens) {
  if (screens.empty()) return wanted;
  double seen = 0;
  for (const Rect& screen : screens) seen += common(wanted, screen).area();
  if (seen >= wanted.area()) return wanted;
  const Rect& screen = *std::ranges::max_element(
      screens, {}, [&](const Rect& each) { return suitability(wanted, each); });
  return {std::max(screen.left, std::min(wanted.left, screen.right() - wanted.width)),
          std::max(screen.top, std::min(wanted.top, screen.bottom() - wanted.height)), wanted.width,
          wanted.height};
}

}  // namespace kvrnstep::forms
