#include "obvious_profile.h"

#include <algorithm>

#include "text/codepage.h"
#include "text/letter_case.h"

namespace kvrnstep::fuzz {

namespace {

std::string lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

/// Sections may have been written on another system; their letters count, not their bytes.
bool isSame(const std::string& name, const std::string& section) {
  if (lower(name) == lower(section)) return true;
  const auto ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::ranges::all_of(name, ascii) || std::ranges::all_of(section, ascii)) return false;
  return text::equalIgnoringCase(text::fromBytes(name), text::fromBytes(section));
}

std::string trimmed(std::string text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.erase(0, 1);
  while (!text.empty() && isBlank(text.back())) text.pop_back();
  return text;
}

bool isQuoted(const std::string& text) {
  return text.size() >= 2 && text.front() == text.back() &&
         (text.front() == '"' || text.front() == '\'');
}

std::optional<std::string> sectionOf(const std::string& line) {
  const std::string text = trimmed(line);
  const auto close = text.rfind(']');
  if (!text.starts_with('[') || close == std::string::npos) return std::nullopt;
  return text.substr(1, close - 1);
}

std::optional<std::string> keyOf(const std::string& line) {
  const auto sign = line.find('=');
  const std::string text = trimmed(line);
  if (sign == std::string::npos || text.starts_with(';')) return std::nullopt;
  return trimmed(line.substr(0, sign));
}

bool standsInFile(const std::string& section, const std::string& key) {
  const std::string name = trimmed(key);
  return section.find_first_of("\r\n") == std::string::npos &&
         key.find_first_of("\r\n=") == std::string::npos && !name.starts_with('[') &&
         !name.starts_with(';');
}

}  // namespace

ObviousProfile::ObviousProfile(std::string bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    mark_ = bytes.substr(0, 3);
    bytes.erase(0, 3);
  }
  while (!bytes.empty()) {
    const auto length = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const std::size_t end = bytes.substr(length, 2) == "\r\n" ? 2 : 1;
    lines_.push_back({bytes.substr(0, length), bytes.substr(length, end)});
    bytes.erase(0, length + end);
  }
}

ObviousProfile::Place ObviousProfile::find(const std::string& section,
                                           const std::string& key) const {
  Place place;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::string& text = lines_[i].text;
    if (const auto name = sectionOf(text)) {
      if (place.section) return place;
      if (!isSame(*name, section)) continue;
      place.section = i;
    } else if (!place.section || trimmed(text).empty()) {
      continue;
    } else if (const auto found = keyOf(text); found && lower(*found) == lower(trimmed(key))) {
      place.key = i;
      return place;
    }
    place.behindLast = i + 1;
  }
  return place;
}

std::optional<std::string> ObviousProfile::value(const std::string& section,
                                                 const std::string& key) const {
  const Place place = find(section, key);
  if (!place.key) return std::nullopt;
  const std::string& line = lines_[*place.key].text;
  return readable(line.substr(line.find('=') + 1));
}

std::string ObviousProfile::readable(const std::string& value) {
  const std::string text = trimmed(value.substr(0, value.find_first_of("\r\n")));
  return isQuoted(text) ? text.substr(1, text.size() - 2) : text;
}

/// The line end in use at a place; CR LF where there is none.
std::string ObviousProfile::endBefore(std::size_t line) const {
  while (line > 0) {
    if (!lines_[--line].end.empty()) return lines_[line].end;
  }
  return "\r\n";
}

/// Puts lines in. A last line without an end stays one: the new last line has none.
void ObviousProfile::insert(std::size_t line, const std::vector<std::string>& texts) {
  const std::string end = endBefore(line);
  const bool open = line > 0 && lines_[line - 1].end.empty();
  if (open) lines_[line - 1].end = end;
  std::vector<Line> added;
  for (const std::string& text : texts) added.push_back({text, end});
  if (open) added.back().end.clear();
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(line), added.begin(), added.end());
}

void ObviousProfile::set(const std::string& section, const std::string& key,
                         const std::string& value) {
  if (!standsInFile(section, key)) return;
  const Place place = find(section, key);
  const std::string line = trimmed(key) + "=" + value;
  if (place.key) {
    std::string& text = lines_[*place.key].text;
    text = text.substr(0, text.find('=') + 1) + value;
  } else if (place.section) {
    insert(place.behindLast, {line});
  } else {
    insert(lines_.size(), {"[" + section + "]", line});
  }
  // The value may have brought line ends of its own.
  *this = ObviousProfile(bytes());
}

std::string ObviousProfile::bytes() const {
  std::string bytes = mark_;
  for (const Line& line : lines_) bytes += line.text + line.end;
  return bytes;
}

}  // namespace kvrnstep::fuzz
