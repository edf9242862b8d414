#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// Every line of a text goes through these: they are here so that compilers can put them in place.
namespace kvrnstep::lines {

/// Places of one line in a text.
struct TextLine {
  std::size_t begin = 0;
  std::size_t text = 0;  ///< behind the blanks and tabs that it begins with
  std::size_t end = 0;   ///< before its line end
  std::size_t next = 0;  ///< behind its line end: LF, CR LF, or none where the text ends
  bool hasText = false;  ///< holds something else than white space
};

/// The place behind blanks and tabs.
inline std::size_t behindBlanks(std::string_view text, std::size_t place) {
  while (place < text.size() && (text[place] == ' ' || text[place] == '\t')) ++place;
  return place;
}

inline bool hasText(std::string_view line) {
  // Most lines tell by their first character.
  if (!line.empty() && static_cast<unsigned char>(line.front()) > ' ') return true;
  return line.find_first_not_of(" \t\r\v\f") != std::string_view::npos;
}

/// The line that begins at a place; at the text's end an empty one. In place, because a copy of the
/// result would wait until its parts have been written.
[[gnu::always_inline]] inline TextLine lineAt(std::string_view text, std::size_t begin) {
  TextLine line;
  line.begin = begin;
  line.end = std::min(text.find('\n', begin), text.size());
  line.next = std::min(line.end + 1, text.size());
  // A CR alone is no line end, not even as the last character.
  if (line.next > line.end && line.end > begin && text[line.end - 1] == '\r') --line.end;
  line.text = behindBlanks(text.substr(0, line.end), begin);
  line.hasText = hasText(text.substr(line.text, line.end - line.text));
  return line;
}

/// Where a line begins, from 1 on; the text's end where it has fewer.
inline std::size_t placeOfLine(std::string_view text, std::size_t line) {
  std::size_t place = 0;
  while (line-- > 1 && place < text.size()) {
    place = std::min(text.find('\n', place), text.size() - 1) + 1;
  }
  return place;
}

/// The column behind a blank or a tab. Columns count from 0, tabs reach to every fourth one.
inline std::size_t columnBehind(char blank, std::size_t column) {
  constexpr std::size_t kTab = 4;
  return blank == '\t' ? column + kTab - column % kTab : column + 1;
}

/// The column of the first character behind a line's blanks.
inline std::size_t depthOf(std::string_view text, const TextLine& line) {
  std::size_t column = 0;
  for (std::size_t place = line.begin; place < line.text; ++place) {
    column = columnBehind(text[place], column);
  }
  return column;
}

/// Bytes of the mark that some editors put at the beginning of UTF-8.
inline std::size_t byteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? kMark.size() : 0;
}

}  // namespace kvrnstep::lines
