#include "lines/part.h"

#include <optional>

#include "lines/line_label.h"
#include "lines/line_reader.h"

namespace kvrnstep::lines {

namespace {

/// The part that a line is in.
/// @param begins tells whether a part begins with the reader's line, which may be behind a blank
/// one
template <class Begins>
Part partAround(std::string_view text, const LineOptions& options, Begins begins) {
  std::optional<LineLabel> label;
  if (options.list) label.emplace(*options.list, options.digits);
  LineReader reader(text, label ? &*label : nullptr);
  Part part{.end = text.size()};
  bool behindBlankLine = true;
  while (reader.next()) {
    if (begins(reader, behindBlankLine)) {
      if (reader.number() > options.line) return {part.begin, reader.line().begin, part.linesAbove};
      part = {reader.line().begin, text.size(), reader.number() - 1};
    }
    behindBlankLine = !reader.line().hasText;
  }
  return part;
}

}  // namespace

Part paragraphAround(std::string_view text, const LineOptions& options) {
  const std::size_t end = text.size();
  if (placeOfLine(text, options.line) == end) return {end, end};
  return partAround(text, options, [](const LineReader& reader, bool behindBlankLine) {
    return reader.line().hasText == behindBlankLine;
  });
}

Part listsAround(std::string_view text, const LineOptions& options) {
  return partAround(text, options, [](const LineReader& reader, bool behindBlankLine) {
    const LineKind kind = reader.kind();
    const bool outside = kind == LineKind::Text || kind == LineKind::Bullet;
    return (kind == LineKind::Heading || (outside && behindBlankLine)) && reader.depth() == 0;
  });
}

void changePart(const Part& part, decltype(number)& change, std::string_view text,
                const LineOptions& options, const Write& write) {
  LineOptions inPart = options;
  inPart.line = 0;
  inPart.linesAbove = part.linesAbove;
  // Nothing is written before it is known that all labels exist.
  std::size_t written = 0;
  const auto writeTo = [&](std::size_t place) {
    if (place > written) write(text.substr(written, place - written));
    written = place;
  };
  change(text.substr(part.begin, part.end - part.begin), inPart, [&](std::string_view piece) {
    writeTo(part.begin);
    write(piece);
  });
  writeTo(part.begin);
  written = part.end;
  writeTo(text.size());
}

}  // namespace kvrnstep::lines
