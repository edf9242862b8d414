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

/// How much two colours differ in brightness: 1 is not at all, 21 is black on white.
double contrast(Rgb one, Rgb other);
/// The least contrast of texts, and of outlines and marks that tell a state.
inline constexpr double kReadable = 4.5;
inline constexpr double kVisible = 3;
/// A link under the mouse stands out more than others.
inline constexpr double kUnderMouse = 7;

/// The colour, made lighter or darker until it has that contrast with the ground.
Rgb standingOut(Rgb color, Rgb ground, double least);
/// Black or white, whichever is easier to read on the ground.
Rgb textOn(Rgb ground);

}  // namespace kvrnstep::forms
