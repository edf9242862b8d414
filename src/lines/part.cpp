#include "lines/part.h"

#include <optional>

#include "lines/line_reader.h"

namespace kvrnstep::lines {

namespace {

/// The part that the line of the options is in.
/// @param begins tells whether a part begins with the reader's line
template <class Begins>
Part partOf(std::string_view text, const LineOptions& options,
            const std::optional<LineLabel>& described, Begins begins) {
  Part part{byteOrderMark(text), text.size()};
  if (options.line == 0) return part;
  LineReader reader(text, part, described);
  while (reader.next()) {
    const TextLine& line = reader.line();
    if (!begins(reader)) continue;
    if (line.number > options.line) return {part.begin, line.begin, part.linesAbove};
    part = {line.begin, text.size(), line.number - 1};
  }
  return part;
}

}  // namespace

Part paragraphOf(std::string_view text, const LineOptions& options) {
  const std::size_t end = text.size();
  if (placeOfLine(text, options.line) == end) return {end, end};
  return partOf(text, options, std::nullopt, [](const LineReader& reader) {
    return reader.line().hasText == reader.line().behindBlankLine;
  });
}

Part listsOf(std::string_view text, const Rules& rules) {
  return partOf(text, rules.options, rules.label, [](const LineReader& reader) {
    const LineKind kind = reader.kind();
    const bool outside = kind == LineKind::Text || kind == LineKind::Bullet;
    const bool ends = kind == LineKind::Heading || (outside && reader.line().behindBlankLine);
    return ends && reader.line().depth == 0;
  });
}

}  // namespace kvrnstep::lines
