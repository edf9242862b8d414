#include "box_font.h"

#include <algorithm>
#include <string>

#include "forms/window.h"
#include "scale.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

constexpr int kCaptionHeight = 11;
constexpr std::u16string_view kCaptionFamily = u"Tahoma";

LOGFONTW description(std::u16string_view family, int height) {
  LOGFONTW font{};
  font.lfHeight = -height;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  font.lfQuality = DEFAULT_QUALITY;
  constexpr std::size_t kLongestName = LF_FACESIZE - 1;
  std::u16string(family.substr(0, kLongestName))
      .copy(reinterpret_cast<char16_t*>(font.lfFaceName), kLongestName);
  return font;
}

LOGFONTW caption(int dpi) {
  return description(kCaptionFamily, toPixels(kCaptionHeight, dpi));
}

Font made(const LOGFONTW& font) {
  return Font(::CreateFontIndirectW(&font));
}

int widthOf(const std::u16string& text, const LOGFONTW& font) {
  const Font held = made(font);
  RECT room{};
  ::DrawTextW(Drawing(nullptr, held.get()), text::wide(text), static_cast<int>(text.size()), &room,
              DT_CALCRECT | DT_SINGLELINE);
  return room.right;
}

/// A missing font is replaced by one of fixed pitch, because it is most likely an editor's font,
/// and the lines of a list must line up.
bool wantsOnePitch(std::u16string_view name) {
  return !name.empty() && name != u"MS Sans Serif" && name != kCaptionFamily;
}

/// A bitmap font can't be scaled, so at other densities the outline font of the same look is used.
std::u16string_view scalable(std::u16string_view name, int dpi) {
  return dpi != kNominalDpi && name == u"MS Sans Serif" ? u"Microsoft Sans Serif" : name;
}

}  // namespace

Font captionFont(int dpi) {
  return made(caption(dpi));
}

Font boxFont(std::u16string_view name, double points, int dpi) {
  const double height = points > 0 ? points * forms::kPixelsPerPoint : kCaptionHeight;
  LOGFONTW font = description(name.empty() ? kCaptionFamily : scalable(name, dpi),
                              std::max(1, toPixels(height, dpi)));
  if (wantsOnePitch(name)) font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  return made(font);
}

double boxFontSize(std::u16string_view name, double points, int dpi) {
  const Font font = boxFont(name, points, dpi);
  const TEXTMETRICW metrics = Drawing(nullptr, font.get()).metrics();
  return fromPixels(metrics.tmHeight - metrics.tmInternalLeading, dpi) / forms::kPixelsPerPoint;
}

Font fittedFont(const std::u16string& text, int width, bool underlined, int dpi) {
  LOGFONTW font = caption(dpi);
  font.lfUnderline = underlined ? TRUE : FALSE;
  Font fitted = made(font);
  if (widthOf(text, font) <= width) return fitted;
  const int usual = Drawing(nullptr, fitted.get()).metrics().tmAveCharWidth;
  for (int narrower = usual - 1; narrower * 2 >= usual; --narrower) {
    font.lfWidth = narrower;
    if (widthOf(text, font) <= width) break;
  }
  return made(font);
}

}  // namespace kvrnstep::windows
