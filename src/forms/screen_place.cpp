#include "forms/screen_place.h"

#include <algorithm>
#include <utility>

namespace kvrnstep::forms {

namespace {

/// A rectangle in one direction.
struct Extent {
  double begin;
  double length;

  [[nodiscard]] double end() const { return begin + length; }
};

Extent across(const Rect& rect) {
  return {rect.left, rect.width};
}

Extent down(const Rect& rect) {
  return {rect.top, rect.height};
}

/// How much the two have in common; negative: how far they are apart.
double common(const Extent& one, const Extent& other) {
  return std::min(one.end(), other.end()) - std::max(one.begin, other.begin);
}

double commonArea(const Rect& one, const Rect& other) {
  return std::max(0.0, common(across(one), across(other))) *
         std::max(0.0, common(down(one), down(other)));
}

/// The better, the greater: first what is seen of the window there, then how near it is.
std::pair<double, double> suitability(const Rect& window, const Rect& screen) {
  const double nearness = std::min(0.0, common(across(window), across(screen))) +
                          std::min(0.0, common(down(window), down(screen)));
  return {commonArea(window, screen), nearness};
}

double inside(const Extent& screen, const Extent& window) {
  return std::max(screen.begin, std::min(window.begin, screen.end() - window.length));
}

}  // namespace

Rect placeOnScreen(const Rect& wanted, std::span<const Rect> screens) {
  if (screens.empty()) return wanted;
  double seen = 0;
  for (const Rect& screen : screens) seen += commonArea(wanted, screen);
  if (seen >= wanted.width * wanted.height) return wanted;
  const Rect& screen = *std::ranges::max_element(
      screens, {}, [&](const Rect& each) { return suitability(wanted, each); });
  return {inside(across(screen), across(wanted)), inside(down(screen), down(wanted)), wanted.width,
          wanted.height};
}

}  // namespace kvrnstep::forms
