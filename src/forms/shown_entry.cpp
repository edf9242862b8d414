#include "forms/shown_entry.h"

#include "forms/control.h"

namespace kvrnstep::forms {

namespace {

bool isSecondHalf(const std::u16string& text, std::size_t at) {
  return at < text.size() && (text[at] & 0xFC00U) == 0xDC00U;
}

/// The text without what is between two places; no character of two units is cut in half.
std::u16string without(const std::u16string& text, std::size_t from, std::size_t to) {
  if (isSecondHalf(text, from)) --from;
  if (isSecondHalf(text, to)) ++to;
  return text.substr(0, from) + u'\u2026' + text.substr(to);
}

}  // namespace

std::u16string shownEntry(const ControlRow& list, const std::u16string& entry, int width,
                          const WidthOf& widthOf) {
  if (widthOf(entry) <= width) return entry;
  const std::size_t wanted = list.keptFrom == nullptr ? std::u16string::npos : list.keptFrom(entry);
  const bool keepsEnd = wanted < entry.size() && widthOf(entry.substr(wanted)) <= width - width / 4;
  const auto withUnits = [&](std::size_t count) {
    return keepsEnd ? without(entry, count, wanted)
                    : without(entry, count - count / 2, entry.size() - count / 2);
  };
  std::size_t fits = 0;
  std::size_t tooMany = keepsEnd ? wanted : entry.size();
  while (fits + 1 < tooMany) {
    const std::size_t middle = (fits + tooMany) / 2;
    (widthOf(withUnits(middle)) <= width ? fits : tooMany) = middle;
  }
  return withUnits(fits);
}

}  // namespace kvrnstep::forms
