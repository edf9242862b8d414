#include <algorithm>
#include <string>

#include "platform/profile.h"
#include "platform/profile_lines.h"
#include "text/codepage.h"
#include "text/letter_case.h"
#include "text/text.h"

namespace kvrnstep::platform {

namespace {

/// What one reading of the file finds of a key and of the place where it would go.
struct Search {
  std::optional<std::string_view> afterSign;  ///< of the key's line
  std::optional<ProfileLine> lastOfSection;   ///< its last line that is not blank
  std::optional<ProfileLine> lastOfFile;      ///< known only where the section is missing
};

/// Another system may have written the section, in its own encoding.
bool isSameSection(std::string_view inFile, std::string_view section) {
  if (text::equalIgnoringCase(inFile, section)) return true;
  return !text::isAscii(inFile) && !text::isAscii(section) &&
         text::equalIgnoringCase(text::fromBytes(inFile), text::fromBytes(section));
}

Search search(std::string_view bytes, std::string_view section, std::string_view key) {
  Search found;
  ProfileLines lines(bytes);
  lines.skipToBracket();
  while (const auto line = lines.next()) {
    if (const auto name = sectionName(*line)) {
      if (found.lastOfSection) break;
      if (isSameSection(*name, section)) found.lastOfSection = line;
    } else if (found.lastOfSection) {
      const auto entry = keyOf(*line);
      if (entry && text::equalIgnoringCase(entry->name, key)) {
        found.afterSign = entry->afterSign;
        break;
      }
      if (!trimBlanksAndTabs(line->text).empty()) found.lastOfSection = line;
    }
    found.lastOfFile = line;
    if (!found.lastOfSection) lines.skipToBracket();
  }
  return found;
}

std::string_view withoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// The offset in the file just behind a part of it.
std::size_t offsetBehind(std::string_view bytes, std::string_view part) {
  return static_cast<std::size_t>(part.data() + part.size() - bytes.data());
}

std::string withNewLines(std::string_view bytes, const ProfileLine& after, std::string_view added) {
  const auto at = offsetBehind(bytes, after.text) + after.end.size();
  std::string result;
  result.reserve(bytes.size() + added.size() + after.usedEnd.size());
  result += bytes.substr(0, at);
  if (after.end.empty()) result += after.usedEnd;
  result += added;
  if (!after.end.empty()) result += after.usedEnd;
  result += bytes.substr(at);
  return result;
}

std::string withReplaced(std::string_view bytes, std::string_view part, std::string_view by) {
  const auto end = offsetBehind(bytes, part);
  std::string result;
  result.reserve(bytes.size() + by.size());
  result += bytes.substr(0, end - part.size());
  result += by;
  result += bytes.substr(end);
  return result;
}

}  // namespace

std::optional<std::string_view> profileValue(std::string_view bytes, std::string_view section,
                                             std::string_view key) {
  const auto found = search(bytes, section, trimBlanksAndTabs(key));
  if (!found.afterSign) return std::nullopt;
  return withoutQuotes(trimBlanksAndTabs(*found.afterSign));
}

std::string withProfileValue(std::string_view bytes, std::string_view section, std::string_view key,
                             std::string_view value) {
  if (!isProfileName(section, key)) return std::string(bytes);
  const auto name = trimBlanksAndTabs(key);
  const auto found = search(bytes, section, name);
  if (found.afterSign) return withReplaced(bytes, *found.afterSign, value);

  std::string added(name);
  added += '=';
  added += value;
  if (found.lastOfSection) return withNewLines(bytes, *found.lastOfSection, added);

  const std::string_view lineEnd = found.lastOfFile ? found.lastOfFile->usedEnd : "\r\n";
  added.insert(0, "[" + std::string(section) + "]" + std::string(lineEnd));
  if (found.lastOfFile) return withNewLines(bytes, *found.lastOfFile, added);
  return std::string(bytes) + added + std::string(lineEnd);
}

bool isProfileName(std::string_view section, std::string_view key) {
  constexpr std::string_view kLineBreaks = "\r\n";
  if (section.find_first_of(kLineBreaks) != std::string_view::npos) return false;
  if (key.find_first_of("\r\n=") != std::string_view::npos) return false;
  const auto name = trimBlanksAndTabs(key);
  return !name.starts_with('[') && !name.starts_with(';');
}

}  // namespace kvrnstep::platform
