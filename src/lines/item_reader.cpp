#include "lines/item_reader.h"

#include <algorithm>
#include <utility>

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

void CodeFence::takeFence(std::string_view line) {
  constexpr std::size_t kLeast = 3;
  const std::size_t length = std::min(line.find_first_not_of(line.front()), line.size());
  const std::string_view rest = line.substr(length);
  if (isOpen()) {
    const bool ends = behindBlanks(rest, 0) == rest.size();
    if (ends && line.front() == character_ && length >= length_) length_ = 0;
  } else if (length >= kLeast && (line.front() == '~' || rest.find('`') == rest.npos)) {
    character_ = line.front();
    length_ = length;
  }
}

ItemReader::ItemReader(std::string_view text, const LineLabel* description,
                       const OutlineRules& rules, std::function<void(const List&)> ended)
    : text_(text),
      description_(description),
      outline_(rules, std::move(ended)),
      place_(byteOrderMark(text)) {}

bool ItemReader::next() {
  while (place_ < text_.size()) {
    const TextLine line = lineAt(text_, place_);
    place_ = line.next;
    ++lineNumber_;
    if (fence_.isOpen()) {
      fence_.take(text_.substr(line.text, line.end - line.text));
    } else if (!line.hasText) {
      outline_.blankLine();
    } else if (isItem(line)) {
      return true;
    } else {
      takeOther(line);
    }
  }
  outline_.endOfText();
  return false;
}

bool ItemReader::isItem(const TextLine& line) {
  if (!findItem(text_, line, description_, item_)) return false;
  list_ = &outline_.item(item_);
  const std::size_t content = behindBlanks(text_.substr(0, line.end), item_.end);
  fence_.take(text_.substr(content, line.end - content));
  return true;
}

void ItemReader::takeOther(const TextLine& line) {
  const std::string_view visible = text_.substr(line.text, line.end - line.text);
  const std::size_t depth = depthOf(text_, line);
  if (isHeading(visible)) return outline_.heading(depth);
  const bool bullet = isBullet(visible);
  fence_.take(bullet ? visible.substr(behindBlanks(visible, 1)) : visible);
  if (bullet) return outline_.bullet(depth);
  if (fence_.isOpen()) return outline_.code(depth);
  outline_.otherText(depth);
}

}  // namespace kvrnstep::lines
