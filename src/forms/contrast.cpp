#include "forms/contrast.h"

#include <algorithm>
#include <cmath>

namespace kvrnstep::forms {

namespace {

double linear(int channel) {
  const double share = channel / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(Rgb color) {
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

/// A fifth of the way from the colour to the grey of that channel.
Rgb towards(Rgb color, int grey) {
  const auto step = [grey](int channel) { return (channel * 4 + grey) / 5; };
  return {step(color.red), step(color.green), step(color.blue)};
}

}  // namespace

std::optional<std::size_t> systemColor(std::int32_t color) {
  const auto bits = static_cast<std::uint32_t>(color);
  if ((bits & 0x80000000U) == 0) return std::nullopt;
  return bits & 0xFFU;
}

Rgb ownColor(std::int32_t color) {
  const auto bits = static_cast<std::uint32_t>(color);
  const auto channel = [bits](int shift) { return static_cast<int>(bits >> shift & 0xFFU); };
  return {channel(0), channel(8), channel(16)};
}

bool isDark(Rgb color) {
  constexpr double kMiddle = 0.18;
  return luminance(color) < kMiddle;
}

double contrast(Rgb one, Rgb other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

Rgb standingOut(Rgb color, Rgb ground, double least) {
  constexpr int kMostSteps = 20;
  const int target = isDark(ground) ? 255 : 0;
  for (int step = 0; contrast(color, ground) < least && step < kMostSteps; ++step) {
    color = towards(color, target);
  }
  return color;
}

Rgb textOn(Rgb ground) {
  return isDark(ground) ? Rgb{255, 255, 255} : Rgb{};
}

}  // namespace kvrnstep::forms
