#include <array>

#include "forms/contrast.h"
#include "looks.h"

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

forms::Rgb rgbOf(const QColor& color) {
  return {color.red(), color.green(), color.blue()};
}

QColor colorOf(forms::Rgb color) {
  return {color.red, color.green, color.blue};
}

}  // namespace

QColor colorOf(std::int32_t color, const QPalette& palette) {
  const auto place = forms::systemColor(color);
  if (!place) return colorOf(forms::ownColor(color));
  return palette.color(*place < kSystemColors.size() ? kSystemColors[*place] : QPalette::Window);
}

bool isDark(const QPalette& palette) {
  return forms::isDark(rgbOf(palette.color(QPalette::Window)));
}

QColor readableLink(const QPalette& palette) {
  return colorOf(forms::readableLink(rgbOf(palette.color(QPalette::Link)),
                                     rgbOf(palette.color(QPalette::Window))));
}

}  // namespace kvrnstep::qt
