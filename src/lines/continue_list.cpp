#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "lines/line_reader.h"
#include "lines/lines.h"
#include "lines/part.h"

namespace kvrnstep::lines {

namespace {

/// A line that is an item.
struct Above {
  std::size_t begin = 0;
  std::size_t depth = 0;
  std::string_view line;   ///< with its end
  std::string_view label;  ///< what is before the item's text
};

/// The last item above a place that is not indented deeper than `depth`.
std::optional<Above> itemAbove(std::string_view text, std::size_t place, std::size_t depth,
                               const Rules& rules) {
  while (place > 0) {
    place = text.substr(0, place - 1).rfind('\n') + 1;
    TextLine line{.next = place};
    line.goOn(text);
    Item item;
    if (line.hasText && findItem(text, line, rules.label, item) && item.depth <= depth) {
      return Above{place, item.depth, text.substr(place, line.next - place),
                   text.substr(place, behindBlanks(text, item.end) - place)};
    }
  }
  return std::nullopt;
}

/// The lines, each with that label and at least one blank. Lines without text get no label, unless
/// there is only one line.
std::string labelled(std::string_view lines, std::string_view label) {
  std::string labelAndBlank(label);
  if (!label.ends_with(' ') && !label.ends_with('\t')) labelAndBlank += ' ';
  if (lines.empty()) return labelAndBlank;
  std::string result;
  for (TextLine line; line.goOn(lines);) {
    const bool gets = line.hasText || line.next - line.begin == lines.size();
    if (gets) result += labelAndBlank;
    const std::size_t from = gets ? line.text : line.begin;
    result += lines.substr(from, line.next - from);
  }
  return result;
}

/// The lines with their labels set right, as the continuation of `before` and `above`. Nothing if
/// `above` would change too, or if the lines do not change.
std::optional<std::string> setRight(std::string_view before, std::string_view above,
                                    const std::string& lines, const Rules& rules) {
  std::string known(before);
  known += above;
  known += lines;
  const Part part{0, known.size(), rules.options.line - (before.empty() ? 2 : 3)};
  std::string result;
  renumberPart(known, part, rules, [&](std::string_view piece) { result += piece; });
  const std::size_t from = before.empty() ? 0 : result.find('\n') + 1;
  if (result.compare(from, above.size(), above) != 0) return std::nullopt;
  result.erase(0, from + above.size());
  return result == lines ? std::nullopt : std::optional(result);
}

}  // namespace

void continueList(std::string_view text, const LineOptions& options, const Write& write) {
  LineOptions goOn = options;
  goOn.keepStart = true;
  const Rules rules(goOn);
  const std::size_t mark = byteOrderMark(text);
  const std::string_view lines = text.substr(mark);
  const std::size_t place = placeOfLine(lines, options.line);
  TextLine first{.next = place};
  first.goOn(lines);
  constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();
  const std::size_t depth = first.begin == first.end ? kAny : first.depth;
  std::optional<std::string> result;
  if (const auto above = itemAbove(lines, place, depth, rules)) {
    // The lines first get the label above, and then all labels are set right. The item before that
    // one is needed to know whether an i is a letter.
    const auto before = itemAbove(lines, above->begin, above->depth, rules);
    const std::string same = labelled(lines.substr(place), above->label);
    if (before) result = setRight(before->line, above->line, same, rules);
    if (!result) result = setRight("", above->line, same, rules);
  }
  if (!result) throw NoLabel("there is no label above");
  write(text.substr(0, mark + place));
  write(*result);
}

}  // namespace kvrnstep::lines
