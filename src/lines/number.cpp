#include <algorithm>
#include <string>

#include "lines/line_label.h"
#include "lines/lines.h"
#include "lines/part.h"
#include "lines/rewriter.h"
#include "lines/text_lines.h"
#include "text/codepage.h"

namespace kvrnstep::lines {

namespace {

using generator::ListSettings;

/// The bytes of a text, with the line ends that another text begins with.
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

/// What `number` puts into a text, and where. To take it out again is the same way with the
/// opposite of each step, so both are here.
class Numbering {
 public:
  enum Direction : std::uint8_t { PutIn, TakeOut };

  /// @param text without a mark at its beginning
  Numbering(std::string_view text, const LineOptions& options, Direction direction)
      : Numbering(text, options, options.list.value_or(ListSettings()), direction) {}

  /// Why one of the lines cannot have its label; empty where all can.
  [[nodiscard]] const std::string& problem() const { return problem_; }

  /// @return false as soon as there is something else than what was to be taken out
  bool run(Rewriter& out) {
    index_ = 0;
    if (!change(out, 0, beginning_)) return false;
    TextLine last;
    for (TextLine line{.next = from_}; line.next < to_;) {
      line = lineAt(lines(), line.next);
      if (!line.hasText) continue;
      if (last.hasText && !change(out, last.next, spacingBehind(last))) return false;
      if (!changeLabel(out, line)) return false;
      last = line;
    }
    if (last.hasText && behindLast_ && !change(out, last.next, spacingBehind(last))) return false;
    return change(out, to_, ending_);
  }

 private:
  Numbering(std::string_view text, const LineOptions& options, const ListSettings& settings,
            Direction direction)
      : text_(text),
        direction_(direction),
        to_(text.size()),
        label_(settings, options.digits),
        numbers_{options.start, options.step},
        indent_(settings.on(generator::Indentation) ? options.indentBlanks : 0, ' '),
        blankLines_(settings.LineSpacing),
        behindLast_(settings.on(generator::IndentSpacing)) {
    if (settings.on(generator::AddBegEnd)) {
      beginning_ = withLineEndsOf(text, settings.Beginning);
      ending_ = withLineEndsOf(text, settings.Ending);
    }
    if (direction == TakeOut) {
      from_ = std::min(beginning_.size(), text.size());
      to_ = std::max(from_, text.size() - std::min(ending_.size(), text.size()));
    }
    const auto exists = [&](std::size_t index) { return !label_.missing(numbers_.at(index)); };
    if (!exists(0) || !exists(text.size()) || label_.rightAligned()) lookAhead(options.linesAbove);
  }

  /// Counts the lines, since the widest label depends on all of them.
  void lookAhead(std::size_t lineNumber) {
    std::size_t count = 0;
    for (TextLine line{.next = from_}; line.next < to_;) {
      line = lineAt(lines(), line.next);
      ++lineNumber;
      if (!line.hasText) continue;
      const std::int64_t number = numbers_.at(count++);
      const auto numerals = label_.missing(number);
      if (!numerals) continue;
      problem_ = whyNoLabel(*numerals, number, lineNumber);
      return;
    }
    width_ = label_.alignedWidth(numbers_, count);
  }

  [[nodiscard]] std::string_view lines() const { return text_.substr(0, to_); }

  bool change(Rewriter& out, std::size_t place, std::string_view piece) const {
    out.keepTo(place);
    if (direction_ == PutIn) {
      out.add(piece);
      return true;
    }
    out.skipTo(place + piece.size());
    return text_.substr(place, piece.size()) == piece;
  }

  bool changeLabel(Rewriter& out, const TextLine& line) {
    piece_ = indent_;
    label_.append(piece_, numbers_.at(index_++), width_);
    if (direction_ == PutIn) return change(out, line.text, piece_);
    // The blanks that it begins with follow the line's own. Text is behind it: otherwise there
    // would be no label, and its blanks would be in front.
    const std::size_t blanks = behindBlanks(piece_, 0);
    const std::size_t place = line.text - std::min(blanks, line.text);
    if (place < line.begin || !change(out, place, piece_)) return false;
    const std::size_t rest = place + piece_.size();
    return rest < line.end && behindBlanks(text_, rest) == rest &&
           hasText(text_.substr(rest, line.end - rest));
  }

  /// The blank lines behind a line, which end as that does; none where it does not.
  const std::string& spacingBehind(const TextLine& line) {
    constexpr int kMostLines = 9;
    piece_.clear();
    const std::string_view lineEnd = text_.substr(line.end, line.next - line.end);
    for (int i = 0; i < std::min(blankLines_, kMostLines) && !lineEnd.empty(); ++i) {
      if (behindLast_) piece_ += indent_;
      piece_ += lineEnd;
    }
    return piece_;
  }

  std::string_view text_;
  Direction direction_;
  std::size_t from_ = 0;  ///< where the first line begins …
  std::size_t to_;        ///< … and the last one ends, beginning and ending aside
  LineLabel label_;
  Sequence numbers_;
  std::string indent_;
  int blankLines_;
  bool behindLast_;
  std::string beginning_;
  std::string ending_;
  std::size_t width_ = 0;
  std::size_t index_ = 0;
  std::string piece_;
  std::string problem_;
};

}  // namespace

void number(std::string_view text, const LineOptions& options, const Write& write) {
  if (options.line > 0)
    return changePart(paragraphAround(text, options), number, text, options, write);
  const std::size_t mark = byteOrderMark(text);
  Numbering numbering(text.substr(mark), options, Numbering::PutIn);
  if (!numbering.problem().empty()) throw NoLabel(numbering.problem());
  Rewriter out(text.substr(mark), write);
  out.add(text.substr(0, mark));
  numbering.run(out);
  out.finish();
}

bool undoNumber(std::string_view text, const LineOptions& options, const Write& write) {
  const std::size_t mark = byteOrderMark(text);
  Numbering numbering(text.substr(mark), options, Numbering::TakeOut);
  const Write nobody = [](std::string_view) {};
  Rewriter trial(text.substr(mark), nobody);
  if (!numbering.problem().empty() || !numbering.run(trial)) return false;
  Rewriter out(text.substr(mark), write);
  out.add(text.substr(0, mark));
  numbering.run(out);
  out.finish();
  return true;
}

}  // namespace kvrnstep::lines
