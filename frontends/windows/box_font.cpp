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

int widthOf(std::u16string_view text, const LOGFONTW& font) {
  const HDC screen = ::GetDC(nullptr);
  const Font held = made(font);
  const HGDIOBJ before = ::SelectObject(screen, held.get());
  RECT room{};
  const std::u16string caption(text);
  ::DrawTextW(screen, text::wide(caption), static_cast<int>(caption.size()), &room,
              DT_CALCRECT | DT_SINGLELINE);
  ::SelectObject(screen, before);
  ::ReleaseDC(nullptr, screen);
  return room.right;
}

TEXTMETRICW metricsOf(const Font& font) {
  const HDC screen = ::GetDC(nullptr);
  const HGDIOBJ before = ::SelectObject(screen, font.get());
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(screen, &metrics);
  ::SelectObject(screen, before);
  ::ReleaseDC(nullptr, screen);
  return metrics;
}

/// What is not there is replaced by a font of one pitch: it is an editor's font, and a list has to
/// line up.
bool wantsOnePitch(std::u16string_view name) {
  return !name.empty() && name != u"MS Sans Serif" && name != kCaptionFamily;
}

/// A font of dots has no sizes between its own; dense monitors get its outlined sister.
std::u16string_view scalable(std::u16string_view name, int dpi) {
  return dpi != kNominalDpi && name == u"MS Sans Serif" ? u"Microsoft Sans Serif" : name;
}

}  // namespace

Font captionFont(int dpi) {
  return made(caption(dpi));
}

Font underlinedFont(int dpi) {
  LOGFONTW font = caption(dpi);
  font.lfUnderline = TRUE;
  return made(font);
}

Font boxFont(std::u16string_view name, double points, int dpi) {
  const double height = points > 0 ? points * forms::kPixelsPerPoint : kCaptionHeight;
  LOGFONTW font = description(name.empty() ? kCaptionFamily : scalable(name, dpi),
                              std::max(1, toPixels(height, dpi)));
  if (wantsOnePitch(name)) font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  return made(font);
}

double boxFontSize(std::u16string_view name, double points, int dpi) {
  const TEXTMETRICW metrics = metricsOf(boxFont(name, points, dpi));
  return fromPixels(metrics.tmHeight - metrics.tmInternalLeading, dpi) / forms::kPixelsPerPoint;
}

Font fittedFont(std::u16string_view text, int width, bool underlined, int dpi) {
  LOGFONTW font = caption(dpi);
  font.lfUnderline = underlined ? TRUE : FALSE;
  if (widthOf(text, font) <= width) return made(font);
  const int usual = metricsOf(made(font)).tmAveCharWidth;
  for (int narrower = usual - 1; narrower * 2 >= usual; --narrower) {
    font.lfWidth = narrower;
    if (widthOf(text, font) <= width) break;
  }
  return made(font);
}

}  // namespace kvrnstep::windows
