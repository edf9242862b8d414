#include "line_breaks.h"

#include <algorithm>

namespace kvrnstep::qt {

namespace {

/// How many units of the text at `place` the widget holds as one character.
std::size_t unitsAt(std::u16string_view text, std::size_t place) {
  return text.substr(place, 2) == u"\r\n" ? 2 : 1;
}

/// The widget begins a new line at each of these.
bool isBreak(char16_t unit) {
  return unit == u'\r' || unit == u'\n' || QChar(unit) == QChar::ParagraphSeparator;
}

}  // namespace

QString widgetLines(std::u16string_view text) {
  QString lines;
  lines.reserve(static_cast<qsizetype>(text.size()));
  for (std::size_t i = 0; i < text.size(); i += unitsAt(text, i)) {
    lines += isBreak(text[i]) ? QChar(u'\n') : QChar(text[i]);
  }
  return lines;
}

std::u16string controlLines(const QString& text) {
  std::u16string lines;
  lines.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar unit : text) {
    if (unit == u'\n') lines += u'\r';
    lines += unit.unicode();
  }
  return lines;
}

std::u16string withEdit(std::u16string_view text, const QString& edited) {
  const QString before = widgetLines(text);
  const auto atStart = std::ranges::mismatch(before, edited).in1 - before.begin();
  const qsizetype most = std::min(before.size(), edited.size()) - atStart;
  qsizetype atEnd = 0;
  while (atEnd < most && before[before.size() - 1 - atEnd] == edited[edited.size() - 1 - atEnd]) {
    ++atEnd;
  }
  std::u16string result(text.substr(0, controlPlace(text, static_cast<int>(atStart))));
  result += controlLines(edited.mid(atStart, edited.size() - atStart - atEnd));
  result += text.substr(controlPlace(text, static_cast<int>(before.size() - atEnd)));
  return result;
}

int widgetPlace(std::u16string_view text, std::size_t place) {
  int characters = 0;
  for (std::size_t i = 0; i < std::min(place, text.size()); i += unitsAt(text, i)) ++characters;
  return characters;
}

std::size_t controlPlace(std::u16string_view text, int place) {
  std::size_t units = 0;
  for (; place > 0 && units < text.size(); --place) units += unitsAt(text, units);
  return units;
}

}  // namespace kvrnstep::qt
