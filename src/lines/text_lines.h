#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// Every line of a text goes through these: they are here so that compilers can put them in place.
namespace kvrnstep::lines {

/// The place behind blanks and tabs.
inline std::size_t behindBlanks(std::string_view text, std::size_t place) {
  while (place < text.size() && (text[place] == ' ' || text[place] == '\t')) ++place;
  return place;
}

/// The place behind the characters between those two that the text begins with.
inline std::size_t behindRun(std::string_view text, char first, char last) {
  std::size_t end = 0;
  while (end < text.size() && text[end] >= first && text[end] <= last) ++end;
  return end;
}

/// The column behind a blank or a tab. Columns count from 0, tabs reach to every fourth one.
inline std::size_t columnBehind(char blank, std::size_t column) {
  constexpr std::size_t kTab = 4;
  return blank == '\t' ? column + kTab - column % kTab : column + 1;
}

/// Whether there is something else than white space.
inline bool holdsText(std::string_view line) {
  // Most lines tell by their first character.
  if (!line.empty() && static_cast<unsigned char>(line.front()) > ' ') return true;
  return line.find_first_not_of(" \t\r\v\f") != std::string_view::npos;
}

/// Places of one line in a text. A new one is before the first line, and that is no blank line.
struct TextLine {
  std::size_t next = 0;    ///< behind its line end: LF, CR LF, or none where the text ends
  std::size_t number = 0;  ///< from 1 on
  std::size_t begin = 0;
  std::size_t text = 0;   ///< behind the blanks and tabs that it begins with
  std::size_t depth = 0;  ///< the column of that
  std::size_t end = 0;    ///< before its line end
  bool hasText = true;
  bool behindBlankLine = false;

  /// Goes on to the next line; false at the text's end.
  [[gnu::always_inline]] bool goOn(std::string_view lines) {
    if (next >= lines.size()) return false;
    ++number;
    begin = next;
    end = std::min(lines.find('\n', begin), lines.size());
    next = std::min(end + 1, lines.size());
    // A CR alone is no line end, not even as the last character.
    if (next > end && end > begin && lines[end - 1] == '\r') --end;
    text = behindBlanks(lines.substr(0, end), begin);
    depth = 0;
    for (std::size_t i = begin; i < text; ++i) depth = columnBehind(lines[i], depth);
    behindBlankLine = !hasText;
    hasText = holdsText(lines.substr(text, end - text));
    return true;
  }
};

/// Whole lines of a text.
struct Part {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t linesAbove = 0;

  /// The place before its first line, to go on from.
  [[nodiscard]] TextLine above() const { return {.next = begin, .number = linesAbove}; }
};

/// Where a line begins, from 1 on; the text's end where it has fewer.
inline std::size_t placeOfLine(std::string_view text, std::size_t number) {
  TextLine above;
  while (above.number + 1 < number && above.goOn(text)) continue;
  return above.next;
}

/// Bytes of the mark that some editors put at the beginning of UTF-8.
inline std::size_t byteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? kMark.size() : 0;
}

}  // namespace kvrnstep::lines
