#include <QCache>
#include <array>
#include <utility>

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

Shades shadesFor(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor button = palette.color(QPalette::Active, QPalette::Button);
  const QColor base = palette.color(QPalette::Active, QPalette::Base);
  const bool dark = forms::isDark(rgbOf(window));
  Shades shades;
  shades.outline = visibleOn(window, palette.color(QPalette::Active, QPalette::Dark));
  constexpr int kHalf = 50;
  shades.disabledOutline = mixed(window, shades.outline, kHalf);
  shades.button = dark ? button : mixed(button, base, 50);
  shades.accent = accent;
  shades.onAccent = textOn(accent);
  shades.accentOutline = visibleOn(window, accent);
  shades.focus = shades.link =
      colorOf(forms::standingOut(rgbOf(accent), rgbOf(window), forms::kReadable));
  constexpr int kFaint = 10;
  shades.hoverLink = colorOf(forms::standingOut(rgbOf(accent), rgbOf(window), forms::kUnderMouse));
  shades.hoverGround = mixed(window, accent, kFaint);
  return shades;
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

bool isHighContrast(const QPalette& palette) {
  const auto color = [&palette](QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
  };
  const QColor window = color(QPalette::Window);
  return (window == Qt::black || window == Qt::white) && color(QPalette::Base) == window &&
         color(QPalette::Button) == window;
}

QColor mixed(const QColor& color, const QColor& other, int percent) {
  const auto channel = [percent](int one, int two) { return one + (two - one) * percent / 100; };
  return {channel(color.red(), other.red()), channel(color.green(), other.green()),
          channel(color.blue(), other.blue())};
}

QColor textOn(const QColor& ground) {
  return colorOf(forms::textOn(rgbOf(ground)));
}

QColor visibleOn(const QColor& ground, const QColor& color) {
  return colorOf(forms::standingOut(rgbOf(color), rgbOf(ground), forms::kVisible));
}

const Shades& shadesOf(const QPalette& palette) {
  constexpr int kMostKnown = 20;
  // Boxes with colours of their own have palettes of their own, but the same window.
  static QCache<std::pair<quint64, quint64>, Shades> known(kMostKnown);
  const auto two = [&palette](QPalette::ColorRole one, QPalette::ColorRole other) {
    return quint64{palette.color(QPalette::Active, one).rgb()} << 32U |
           palette.color(QPalette::Active, other).rgb();
  };
  const std::pair key(two(QPalette::Window, QPalette::Highlight),
                      two(QPalette::Button, QPalette::Base));
  Shades* shades = known.object(key);
  if (shades == nullptr) {
    shades = new Shades(shadesFor(palette));
    known.insert(key, shades);
  }
  return *shades;
}

}  // namespace kvrnstep::qt
