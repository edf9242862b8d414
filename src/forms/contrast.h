#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace kvrnstep::forms {

/// A colour as screens mix it, 0 to 255 each.
struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;

  bool operator==(const Rgb&) const = default;
};

/// The number of the system's colour that a control's colour stands for; nothing where the control
/// has a colour of its own.
std::optional<std::size_t> systemColor(std::int32_t color);
/// A control's own colour, 0x00BBGGRR.
Rgb ownColor(std::int32_t color);

/// Whether the colour is nearer to black than to white, as the eye sees it.
bool isDark(Rgb color);

/// The colour of links, made lighter or darker until it can be read on the ground.
Rgb readableLink(Rgb link, Rgb ground);

}  // namespace kvrnstep::forms
