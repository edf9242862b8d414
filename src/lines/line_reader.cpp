#include "lines/line_reader.h"

#include <algorithm>

namespace kvrnstep::lines {

namespace {

bool isBlankOrEnd(std::string_view line, std::size_t place) {
  return place >= line.size() || line[place] == ' ' || line[place] == '\t';
}

bool isHeading(std::string_view line) {
  constexpr std::size_t kMostSigns = 6;
  const std::size_t signs = behindRun(line, '#', '#');
  return signs >= 1 && signs <= kMostSigns && isBlankOrEnd(line, signs);
}

bool isBullet(std::string_view line) {
  constexpr std::string_view kBullets = "-*+";
  return kBullets.find(line.front()) != std::string_view::npos && isBlankOrEnd(line, 1);
}

/// Characters that can be a label, and of which kind; nothing for all others.
std::size_t possibleLabel(std::string_view line, LabelKind& kind) {
  const char first = line.front();
  kind = first <= '9' ? LabelKind::Decimal : first >= 'a' ? LabelKind::Small : LabelKind::Capital;
  if (kind == LabelKind::Decimal) return behindRun(line, '0', '9');
  return kind == LabelKind::Small ? behindRun(line, 'a', 'z') : behindRun(line, 'A', 'Z');
}

/// Whether letters with points follow one another, as in "e. g." or "J. R. Smith".
/// @param line from the first point on
bool isAbbreviation(std::string_view line) {
  if (line.size() < 4 || !line.starts_with(". ") || line[3] != '.') return false;
  const int smallLetter = line[2] | ('a' - 'A');
  return smallLetter >= 'a' && smallLetter <= 'z';
}

/// @param line from behind its blanks
bool findAny(std::string_view line, Item& item) {
  const std::size_t size = possibleLabel(line, item.kind);
  if (size == 0 || size == line.size()) return false;
  item.delimiter = line[size];
  if (item.delimiter != '.' && item.delimiter != ')' && item.delimiter != ':') return false;
  if (!isBlankOrEnd(line, size + 1)) return false;
  item.label = line.substr(0, size);
  item.width = size;
  item.end = size + 1;
  if (item.kind == LabelKind::Decimal) return size <= kMostDigits;
  if (isAbbreviation(line.substr(size))) return false;
  item.readings = {numberOf(Alphabetical, item.label), numberOf(RomanNumeral, item.label)};
  return item.readings.plain >= 0 || item.readings.roman >= 0;
}

}  // namespace

bool findItem(std::string_view text, const TextLine& line,
              const std::optional<LineLabel>& described, Item& item) {
  const std::string_view visible = text.substr(line.text, line.end - line.text);
  if (!(described ? described->find(visible, item) : findAny(visible, item))) return false;
  item.end += line.text;
  item.depth = line.depth;
  return true;
}

bool LineReader::next() {
  if (!line_.goOn(text_)) return false;
  kind_ = kindOf(text_.substr(line_.text, line_.end - line_.text));
  return true;
}

/// @param visible the line from behind its blanks on
LineKind LineReader::kindOf(std::string_view visible) {
  if (isCode()) {
    takeFence(visible);
    return LineKind::Code;
  }
  if (!line_.hasText) return LineKind::Blank;
  if (findItem(text_, line_, described_, item_)) {
    takeFence(visible.substr(behindBlanks(visible, item_.end - line_.text)));
    return LineKind::Item;
  }
  if (isHeading(visible)) return LineKind::Heading;
  const bool bullet = isBullet(visible);
  takeFence(bullet ? visible.substr(behindBlanks(visible, 1)) : visible);
  if (bullet) return LineKind::Bullet;
  return isCode() ? LineKind::Fence : LineKind::Text;
}

/// Code is between lines of at least three ` or ~.
void LineReader::takeFence(std::string_view content) {
  constexpr std::size_t kLeast = 3;
  if (content.empty() || (content.front() != '`' && content.front() != '~')) return;
  const std::size_t length = behindRun(content, content.front(), content.front());
  const std::string_view rest = content.substr(length);
  if (isCode()) {
    const bool ends = behindBlanks(rest, 0) == rest.size();
    if (ends && content.front() == fenceCharacter_ && length >= fenceLength_) fenceLength_ = 0;
  } else if (length >= kLeast &&
             (content.front() == '~' || rest.find('`') == std::string_view::npos)) {
    fenceCharacter_ = content.front();
    fenceLength_ = length;
  }
}

}  // namespace kvrnstep::lines
