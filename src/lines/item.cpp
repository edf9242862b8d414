#include "lines/item.h"

#include <algorithm>

namespace kvrnstep::lines {

namespace {

bool isBetween(char first, char c, char last) {
  return c >= first && c <= last;
}

/// Where a run of characters between those two ends.
std::size_t behindRun(std::string_view line, char first, char last) {
  std::size_t end = 0;
  while (end < line.size() && isBetween(first, line[end], last)) ++end;
  return end;
}

/// Characters that can be a label, and of which kind; nothing for all others.
std::size_t possibleLabel(std::string_view line, LabelKind& kind) {
  const char first = line.front();
  kind = first <= '9' ? LabelKind::Decimal : first >= 'a' ? LabelKind::Small : LabelKind::Capital;
  if (kind == LabelKind::Decimal) return behindRun(line, '0', '9');
  return kind == LabelKind::Small ? behindRun(line, 'a', 'z') : behindRun(line, 'A', 'Z');
}

bool isLetter(char c) {
  return isBetween('a', c, 'z') || isBetween('A', c, 'Z');
}

/// Whether letters with points follow one another, as in "e. g." or "J. R. Smith".
/// @param line from the first point on
bool isAbbreviation(std::string_view line) {
  return line.size() > 3 && line.starts_with(". ") && isLetter(line[2]) && line[3] == '.';
}

/// @param line from behind its blanks
bool findAny(std::string_view line, Item& item) {
  const std::size_t size = possibleLabel(line, item.kind);
  if (size == 0 || size == line.size()) return false;
  item.delimiter = line[size];
  if (item.delimiter != '.' && item.delimiter != ')' && item.delimiter != ':') return false;
  item.end = size + 1;
  if (item.end < line.size() && line[item.end] != ' ' && line[item.end] != '\t') return false;
  if (item.kind != LabelKind::Decimal && isAbbreviation(line.substr(size))) return false;
  item.label = line.substr(0, size);
  item.width = size;
  if (item.kind == LabelKind::Decimal) return size <= kMostDigits;
  item.readings = {numberOf(Numerals::Letters, item.label), numberOf(Numerals::Roman, item.label)};
  return item.readings.plain >= 0 || item.readings.roman >= 0;
}

bool findDescribed(std::string_view line, const LineLabel& description, Item& item) {
  const auto found = description.find(line);
  if (!found) return false;
  item.kind = LabelKind::Described;
  item.label = line.substr(found->label, found->width);
  item.readings = {found->number, -1};
  item.end = found->end;
  item.width = found->label + found->width - found->field;
  return true;
}

}  // namespace

bool findItem(std::string_view text, const TextLine& line, const LineLabel* description,
              Item& item) {
  const std::string_view visible = text.substr(line.text, line.end - line.text);
  const bool found =
      description == nullptr ? findAny(visible, item) : findDescribed(visible, *description, item);
  if (!found) return false;
  item.begin = line.text;
  item.end += line.text;
  item.line = line.begin;
  item.depth = depthOf(text, line);
  return true;
}

}  // namespace kvrnstep::lines
