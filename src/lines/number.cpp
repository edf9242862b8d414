#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "generator/generator.h"
#include "lines/line_label.h"
#include "lines/lines.h"
#include "lines/part.h"
#include "lines/rewriter.h"
#include "lines/text_lines.h"
#include "text/codepage.h"

namespace kvrnstep::lines {

namespace {

using generator::ListSettings;

/// The bytes of a text, with the line ends of the other text's first line.
std::string withLineEndsOf(std::string_view other, const std::u16string& text) {
  const std::size_t lineFeed = std::min(other.find('\n'), other.size());
  const bool crLf = other.substr(0, lineFeed).ends_with('\r') && lineFeed < other.size();
  std::string result;
  for (const char c : text::toUtf8(text)) {
    if (c == '\n' && result.ends_with('\r')) result.pop_back();
    if (c == '\n' && crLf) result += '\r';
    result += c;
  }
  return result;
}

/// What `number` puts into a part, and where. Taking it out needs the same steps, each of them
/// reversed, so both are here.
class Numbering {
 public:
  enum Direction : std::uint8_t { PutIn, TakeOut };

  /// @throws NoLabel where one of the lines cannot have its label
  Numbering(std::string_view text, const Part& part, const LineOptions& options,
            Direction direction)
      : Numbering(text, part, options, options.list.value_or(ListSettings()), direction) {}

  /// @return false as soon as the text differs from what is to be taken out
  bool run(const Write& write) {
    Rewriter out(text_, write);
    std::size_t index = 0;
    if (!change(out, part_.begin, beginning_)) return false;
    TextLine last{.hasText = false};
    for (TextLine line = lines_.above(); line.goOn(lines());) {
      if (!line.hasText) continue;
      if (last.hasText && !change(out, last.next, spacingBehind(last))) return false;
      if (!changeLabel(out, line, numbers_.at(index++))) return false;
      last = line;
    }
    if (last.hasText && behindLast_ && !change(out, last.next, spacingBehind(last))) return false;
    if (!change(out, lines_.end, ending_)) return false;
    out.finish();
    return true;
  }

 private:
  Numbering(std::string_view text, const Part& part, const LineOptions& options,
            const ListSettings& settings, Direction direction)
      : text_(text),
        part_(part),
        lines_(part),
        direction_(direction),
        label_(settings, options.digits),
        numbers_{options.start, options.step},
        indent_(settings.on(generator::Indentation) ? options.indentBlanks : 0, ' '),
        behindLast_(settings.on(generator::IndentSpacing)) {
    const std::u16string fill(behindLast_ ? indent_.size() : 0, u' ');
    for (const std::u16string_view lineEnd : {u"\n", u"\r\n"}) {
      spacings_.at(lineEnd.size()) = text::toUtf8(
          generator::BuildLineSpacing(u"", settings.LineSpacing, fill + std::u16string(lineEnd)));
    }
    const std::size_t size = part.end - part.begin;
    if (settings.on(generator::AddBegEnd)) {
      beginning_ = withLineEndsOf(text.substr(part.begin, size), settings.Beginning);
      ending_ = withLineEndsOf(text.substr(part.begin, size), settings.Ending);
    }
    if (direction == TakeOut) {
      lines_.begin += std::min(beginning_.size(), size);
      lines_.end = std::max(lines_.begin, part.end - std::min(ending_.size(), size));
    }
    const bool allExist = label_.exists(numbers_.at(0)) && label_.exists(numbers_.at(size));
    if (!allExist || label_.rightAligned()) lookAhead();
  }

  /// Counts the lines, since the widest label depends on all of them.
  void lookAhead() {
    std::size_t count = 0;
    for (TextLine line = lines_.above(); line.goOn(lines());) {
      if (line.hasText) label_.require(numbers_.at(count++), line.number);
    }
    if (label_.rightAligned() && count > 0) width_ = widestLabel(label_.style(), numbers_, count);
  }

  [[nodiscard]] std::string_view lines() const { return text_.substr(0, lines_.end); }

  bool change(Rewriter& out, std::size_t place, std::string_view piece) const {
    out.keepTo(place);
    if (direction_ == PutIn) {
      out.add(piece);
      return true;
    }
    out.skipTo(place + piece.size());
    return text_.substr(place, piece.size()) == piece;
  }

  bool changeLabel(Rewriter& out, const TextLine& line, std::int64_t number) {
    piece_ = indent_;
    label_.append(piece_, number, width_);
    if (direction_ == PutIn) return change(out, line.text, piece_);
    // The blanks that the label begins with follow the line's own blanks. Text must follow the
    // label, because a line without text gets none.
    const std::size_t blanks = behindBlanks(piece_, 0);
    const std::size_t place = line.text - std::min(blanks, line.text);
    if (place < line.begin || !change(out, place, piece_)) return false;
    const std::size_t rest = place + piece_.size();
    return rest < line.end && behindBlanks(text_, rest) == rest &&
           holdsText(text_.substr(rest, line.end - rest));
  }

  /// The blank lines behind a line, with the same line ends; none behind a line without a line end.
  [[nodiscard]] const std::string& spacingBehind(const TextLine& line) const {
    return spacings_.at(line.next - line.end);
  }

  std::string_view text_;
  Part part_;
  Part lines_;  ///< the part without beginning and ending
  Direction direction_;
  LineLabel label_;
  Sequence numbers_;
  std::string indent_;
  bool behindLast_;
  std::array<std::string, 3> spacings_;  ///< by the length of a line end
  std::string beginning_;
  std::string ending_;
  std::size_t width_ = 0;
  std::string piece_;
};

}  // namespace

void number(std::string_view text, const LineOptions& options, const Write& write) {
  Numbering(text, paragraphOf(text, options), options, Numbering::PutIn).run(write);
}

bool undoNumber(std::string_view text, const Part& part, const LineOptions& options,
                const Write& write) {
  try {
    Numbering numbering(text, part, options, Numbering::TakeOut);
    return numbering.run([](std::string_view) {}) && numbering.run(write);
  } catch (const NoLabel&) {
    return false;
  }
}

}  // namespace kvrnstep::lines
