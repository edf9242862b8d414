#include "generator/generator.h"

#include <algorithm>

#include "generator/line_layout.h"

namespace kvrnstep::generator {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr int kMostSpacingLines = 9;
constexpr int kMostExpectedSteps = 100;

}  // namespace

std::u16string BuildLineSpacing(std::u16string_view vSeparator, int iLines,
                                std::u16string_view sFill) {
  if (iLines < 0) return {};
  std::u16string spacing(vSeparator);
  for (int line = 0; line < std::min(iLines, kMostSpacingLines); ++line) {
    spacing += sFill;
    spacing += vSeparator;
  }
  return spacing;
}

std::u16string generateList(const ListSettings& settings, std::size_t indentBlanks) {
  const std::u16string indent(settings.on(Indentation) ? indentBlanks : 0, u' ');
  const bool fillSpacing = settings.on(IndentSpacing);
  const std::u16string spacing =
      BuildLineSpacing(kLineBreak, settings.LineSpacing, fillSpacing ? indent : std::u16string());
  const LineLayout layout(settings, spacing + indent);

  const int steps = std::clamp(settings.Count - settings.Start + 1, 0, kMostExpectedSteps);
  TextBuilder list(settings.Beginning.size() + settings.Ending.size() +
                   static_cast<std::size_t>(steps + 1) * layout.expectedSize());
  if (settings.on(AddBegEnd)) list.append(settings.Beginning);
  for (int step = settings.Start; step <= settings.Count; ++step) {
    // What lies between two lines belongs to the second one.
    layout.appendLine(list, step, step == settings.Start ? spacing.size() : 0);
  }
  if (steps > 0 && fillSpacing) list.append(spacing);
  if (settings.on(AddBegEnd)) list.append(settings.Ending);
  return list.take();
}

}  // namespace kvrnstep::generator
