#include "lines/line_reader.h"

#include <algorithm>

namespace kvrnstep::lines {

namespace {

bool isBlankOrEnd(std::string_view line, std::size_t place) {
  return place >= line.size() || line[place] == ' ' || line[place] == '\t';
}

bool isHeading(std::string_view line) {
  constexpr std::size_t kMostSigns = 6;
  const std::size_t signs = std::min(line.find_first_not_of('#'), line.size());
  return signs >= 1 && signs <= kMostSigns && isBlankOrEnd(line, signs);
}

bool isBullet(std::string_view line) {
  constexpr std::string_view kBullets = "-*+";
  return kBullets.find(line.front()) != std::string_view::npos && isBlankOrEnd(line, 1);
}

}  // namespace

bool LineReader::next() {
  if (line_.next >= text_.size()) return false;
  line_ = lineAt(text_, line_.next);
  ++number_;
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
  if (findItem(text_, line_, description_, item_)) {
    const std::size_t content = behindBlanks(text_.substr(0, line_.end), item_.end);
    takeFence(text_.substr(content, line_.end - content));
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
  const std::size_t length = std::min(content.find_first_not_of(content.front()), content.size());
  const std::string_view rest = content.substr(length);
  if (isCode()) {
    const bool ends = behindBlanks(rest, 0) == rest.size();
    if (ends && content.front() == fenceCharacter_ && length >= fenceLength_) fenceLength_ = 0;
  } else if (length >= kLeast && (content.front() == '~' || rest.find('`') == rest.npos)) {
    fenceCharacter_ = content.front();
    fenceLength_ = length;
  }
}

}  // namespace kvrnstep::lines
