#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "lines/item.h"
#include "lines/line_label.h"
#include "lines/lines.h"
#include "lines/text_lines.h"

namespace kvrnstep::lines {

namespace {

/// The last item above a place that is no further in than the depth.
std::optional<Item> itemAbove(std::string_view text, std::size_t place, std::size_t depth,
                              const LineLabel* description) {
  Item item;
  while (place > 0) {
    place = text.substr(0, place - 1).rfind('\n') + 1;
    const TextLine line = lineAt(text, place);
    const bool found = line.hasText && findItem(text, line, description, item);
    if (found && item.depth <= depth) return item;
  }
  return std::nullopt;
}

std::string_view lineOf(std::string_view text, const Item& item) {
  return text.substr(item.line, lineAt(text, item.line).next - item.line);
}

/// What is before the text of an item, with a blank at least.
std::string labelOf(std::string_view text, const Item& item) {
  std::string label(text.substr(item.line, behindBlanks(text, item.end) - item.line));
  if (label.back() != ' ' && label.back() != '\t') label += ' ';
  return label;
}

/// The lines with that label. Those without text get none unless there is only one.
std::string labelled(std::string_view lines, const std::string& label) {
  std::string result;
  for (TextLine line; result.empty() || line.next < lines.size();) {
    line = lineAt(lines, line.next);
    const bool gets = line.hasText || line.next - line.begin == lines.size();
    if (gets) result += label;
    const std::size_t from = gets ? line.text : line.begin;
    result += lines.substr(from, line.next - from);
  }
  return result;
}

/// What the labels of lines become behind others; nothing where the last one of these would change,
/// or nothing else.
std::optional<std::string> setRight(std::string_view before, std::string_view above,
                                    const std::string& lines, const LineOptions& options) {
  LineOptions goOn = options;
  goOn.line = 0;
  goOn.linesAbove = options.line - (before.empty() ? 2 : 3);
  goOn.keepStart = true;
  std::string known(before);
  known += above;
  std::string result;
  renumber(known + lines, goOn, [&](std::string_view piece) { result += piece; });
  const std::size_t from = before.empty() ? 0 : result.find('\n') + 1;
  if (result.compare(from, above.size(), above) != 0) return std::nullopt;
  result.erase(0, from + above.size());
  return result == lines ? std::nullopt : std::optional(result);
}

}  // namespace

void continueList(std::string_view text, const LineOptions& options, const Write& write) {
  const std::size_t mark = byteOrderMark(text);
  const std::string_view lines = text.substr(mark);
  const std::size_t place = placeOfLine(lines, options.line);
  const TextLine first = lineAt(lines, place);
  std::optional<LineLabel> described;
  if (options.list) described.emplace(*options.list, options.digits);
  const LineLabel* const description = described ? &*described : nullptr;

  constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();
  const std::size_t depth = first.begin == first.end ? kAny : depthOf(lines, first);
  std::optional<std::string> result;
  if (const auto above = itemAbove(lines, place, depth, description)) {
    // The lines get the label above, which is then set right, with the item before it where that is
    // what tells an i that is a letter.
    const auto before = itemAbove(lines, above->line, above->depth, description);
    const std::string same = labelled(lines.substr(place), labelOf(lines, *above));
    if (before) result = setRight(lineOf(lines, *before), lineOf(lines, *above), same, options);
    if (!result) result = setRight("", lineOf(lines, *above), same, options);
  }
  if (!result) throw NoLabel("there is no label above");
  write(text.substr(0, mark + place));
  write(*result);
}

}  // namespace kvrnstep::lines
