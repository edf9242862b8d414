#include "qt_colors.h"

#include <array>
#include <cmath>
#include <utility>

namespace kvrnstep::qt {

namespace {

/// Places in the system's list of colours, from 0 on.
constexpr std::array kSystemColors{
    QPalette::Mid,         // scroll bar
    QPalette::Dark,        // desktop
    QPalette::Highlight,   // active title bar
    QPalette::Mid,         // inactive title bar
    QPalette::Window,      // menu
    QPalette::Base,        // window
    QPalette::WindowText,  // window frame
    QPalette::WindowText,  // menu text
    QPalette::Text,        // window text
    QPalette::HighlightedText,
    QPalette::Window,  // active border
    QPalette::Window,  // inactive border
    QPalette::Dark,    // application workspace
    QPalette::Highlight,
    QPalette::HighlightedText,
    QPalette::Button,
    QPalette::Dark,             // button shadow
    QPalette::PlaceholderText,  // greyed-out text
    QPalette::ButtonText,
    QPalette::WindowText,  // inactive title
    QPalette::Light,
    QPalette::Shadow,
    QPalette::Midlight,
    QPalette::ToolTipText,
    QPalette::ToolTipBase,
};

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor colorOf(std::int32_t color, const QPalette& palette) {
  const auto bits = static_cast<std::uint32_t>(color);
  if ((bits & 0x80000000U) != 0) {
    const std::size_t place = bits & 0xFFU;
    return palette.color(place < kSystemColors.size() ? kSystemColors[place] : QPalette::Window);
  }
  return {static_cast<int>(bits & 0xFFU), static_cast<int>(bits >> 8 & 0xFFU),
          static_cast<int>(bits >> 16 & 0xFFU)};
}

bool isDark(const QPalette& palette) {
  constexpr double kMiddle = 0.18;
  return luminance(palette.color(QPalette::Window)) < kMiddle;
}

QColor readableLink(const QPalette& palette) {
  constexpr double kReadable = 4.5;
  const QColor window = palette.color(QPalette::Window);
  QColor link = palette.color(QPalette::Link);
  const bool dark = isDark(palette);
  for (int step = 0; contrast(link, window) < kReadable && step < 20; ++step) {
    const QColor target = dark ? Qt::white : Qt::black;
    link.setRgb((link.red() * 4 + target.red()) / 5, (link.green() * 4 + target.green()) / 5,
                (link.blue() * 4 + target.blue()) / 5);
  }
  return link;
}

}  // namespace kvrnstep::qt
