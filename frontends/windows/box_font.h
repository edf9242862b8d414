#pragma once

#include <string>
#include <string_view>

#include "handle.h"

namespace kvrnstep::windows {

/// The font of captions on a monitor of that density.
Font captionFont(int dpi);
/// The font of a box; without a name or with 0 points the one of the captions in that respect.
Font boxFont(std::u16string_view name, double points, int dpi);
/// The size in points that this font has: a font of pixels has only some, and any other is a whole
/// number of pixels high.
double boxFontSize(std::u16string_view name, double points, int dpi);
/// The font of captions, narrowed as far as the text needs to fit the width, within reason.
Font fittedFont(const std::u16string& text, int width, bool underlined, int dpi);

}  // namespace kvrnstep::windows
