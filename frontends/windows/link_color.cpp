#include "link_color.h"

#include <algorithm>
#include <cmath>

namespace kvrnstep::windows {

namespace {

double linear(BYTE channel) {
  const double share = channel / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF color) {
  return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
         0.0722 * linear(GetBValue(color));
}

double contrast(COLORREF a, COLORREF b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

/// A fifth of the way from the colour to the grey of that channel.
COLORREF towards(COLORREF color, int grey) {
  const auto step = [grey](int channel) { return static_cast<BYTE>((channel * 4 + grey) / 5); };
  return RGB(step(GetRValue(color)), step(GetGValue(color)), step(GetBValue(color)));
}

}  // namespace

COLORREF linkColor() {
  constexpr double kReadable = 4.5;
  constexpr double kDark = 0.18;
  constexpr int kMostSteps = 20;
  const COLORREF ground = ::GetSysColor(COLOR_BTNFACE);
  const int target = luminance(ground) < kDark ? 255 : 0;
  COLORREF link = ::GetSysColor(COLOR_HOTLIGHT);
  for (int step = 0; contrast(link, ground) < kReadable && step < kMostSteps; ++step) {
    link = towards(link, target);
  }
  return link;
}

}  // namespace kvrnstep::windows
