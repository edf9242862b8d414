#pragma once

#include <string>
#include <string_view>

#include "handle.h"

namespace kvrnstep::windows {

// All sizes are for a monitor of that many dots per inch.

Font captionFont(int dpi);
/// The font of a box. Without a name it is the captions' family, with 0 points their size.
Font boxFont(std::u16string_view name, double points, int dpi);
/// The size in points that this font really has, because a font is a whole number of pixels high
/// and a bitmap font exists in a few sizes only.
double boxFontSize(std::u16string_view name, double points, int dpi);
/// The captions' font, made narrower until the text fits the width or is half as wide as usual.
Font fittedFont(const std::u16string& text, int width, bool underlined, int dpi);

}  // namespace kvrnstep::windows
