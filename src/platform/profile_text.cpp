#include <algorithm>
#include <span>
#include <string>

#include "platform/profile.h"
#include "text/codepage.h"
#include "text/letter_case.h"
#include "text/text.h"

namespace kvrnstep::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanksAndTabs = " \t";

/// The line end that a text ends with; empty if there is none.
std::string_view endOf(std::string_view text) {
  if (!text.ends_with('\r') && !text.ends_with('\n')) return {};
  return text.substr(text.size() - (text.ends_with("\r\n") ? 2 : 1));
}

std::string_view trimBlanksAndTabs(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanksAndTabs);
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(kBlanksAndTabs) - first + 1);
}

struct ProfileLine {
  std::string_view text;     ///< without the line end
  std::string_view end;      ///< CR LF, LF or CR; empty where the file ends without one
  std::string_view usedEnd;  ///< `end`, or else that of the line before; CR LF for a lone line
};

/// Gives the lines of a file one after the other. The byte order mark at the start of a file is
/// part of no line, and nothing follows the last line end.
class ProfileLines {
 public:
  /// @param place where the first line begins
  ProfileLines(std::string_view bytes, std::size_t place) : bytes_(bytes), at_(place) {
    if (place == 0 && bytes_.starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
    const std::string_view before = endOf(bytes.substr(0, at_));
    if (!before.empty()) usedEnd_ = before;
  }

  [[nodiscard]] std::size_t place() const { return at_; }

  std::optional<ProfileLine> next() {
    if (at_ == bytes_.size()) return std::nullopt;
    const auto rest = bytes_.substr(at_);
    const auto textLength = static_cast<std::size_t>(
        std::ranges::find_if(rest, [](char c) { return c == '\r' || c == '\n'; }) - rest.begin());
    const auto textEnd = at_ + textLength;
    const std::size_t endLength = bytes_.substr(textEnd, 2) == "\r\n" ? 2 : 1;
    const auto end = bytes_.substr(textEnd, endLength);
    if (!end.empty()) usedEnd_ = end;
    const ProfileLine line{bytes_.substr(at_, textEnd - at_), end, usedEnd_};
    at_ = textEnd + end.size();
    return line;
  }

  /// Skips lines without a "[", which begin no section, but never the last line of the file.
  void skipToBracket() {
    std::string_view before = bytes_.substr(at_, bytes_.find('[', at_) - at_);
    if (at_ + before.size() == bytes_.size()) before.remove_suffix(endOf(before).size());
    while (!before.empty() && endOf(before).empty()) before.remove_suffix(1);
    if (before.empty()) return;
    usedEnd_ = endOf(before);
    at_ += before.size();
  }

 private:
  std::string_view bytes_;
  std::string_view usedEnd_ = "\r\n";
  std::size_t at_;
};

/// The name in a section line.
std::optional<std::string_view> sectionName(const ProfileLine& line) {
  const auto open = line.text.find_first_not_of(kBlanksAndTabs);
  if (open == std::string_view::npos || line.text[open] != '[') return std::nullopt;
  const auto close = line.text.rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return line.text.substr(open + 1, close - open - 1);
}

/// What follows the "=" of a line with that key; nothing for any other line.
std::optional<std::string_view> valueOf(const ProfileLine& line, std::string_view key) {
  const auto sign = line.text.find('=');
  if (sign == std::string_view::npos) return std::nullopt;
  const auto name = trimBlanksAndTabs(line.text.substr(0, sign));
  if (name.starts_with(';') || !text::equalIgnoringCase(name, key)) return std::nullopt;
  return line.text.substr(sign + 1);
}

/// Where a key is, or would go.
struct Search {
  std::optional<std::string_view> afterSign;  ///< of the key's line
  std::optional<ProfileLine> lastOfSection;   ///< its last line that is not blank
  std::optional<ProfileLine> lastOfFile;      ///< known only where the section is missing
};

/// The section may be in another encoding, because another system may have written it.
bool isSameSection(std::string_view inFile, std::string_view section) {
  if (text::equalIgnoringCase(inFile, section)) return true;
  return !text::isAscii(inFile) && !text::isAscii(section) &&
         text::equalIgnoringCase(text::fromBytes(inFile), text::fromBytes(section));
}

/// @param from where to begin; becomes the place of the section
Search search(std::string_view bytes, std::string_view section, std::string_view key,
              std::size_t& from) {
  Search found;
  ProfileLines lines(bytes, from);
  lines.skipToBracket();
  std::size_t place = lines.place();
  for (; const auto line = lines.next(); place = lines.place()) {
    if (const auto name = sectionName(*line)) {
      if (found.lastOfSection) break;
      if (isSameSection(*name, section)) {
        found.lastOfSection = line;
        from = place;
      }
    } else if (found.lastOfSection) {
      if ((found.afterSign = valueOf(*line, key))) break;
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

void addLines(std::string& bytes, const ProfileLine& after, std::string lines) {
  lines.insert(after.end.empty() ? 0 : lines.size(), after.usedEnd);
  bytes.insert(offsetBehind(bytes, after.text) + after.end.size(), lines);
}

/// @param from as `search` takes it
void setValue(std::string& bytes, std::string_view section, std::string_view key,
              std::string_view value, std::size_t& from) {
  const auto name = trimBlanksAndTabs(key);
  value = firstLine(value);
  const auto found = search(bytes, section, name, from);
  if (const auto old = found.afterSign) {
    bytes.replace(offsetBehind(bytes, *old) - old->size(), old->size(), value);
    return;
  }
  std::string added = std::string(name) + '=' + std::string(value);
  if (found.lastOfSection) return addLines(bytes, *found.lastOfSection, added);

  const std::string_view lineEnd = found.lastOfFile ? found.lastOfFile->usedEnd : "\r\n";
  added.insert(0, "[" + std::string(section) + "]" + std::string(lineEnd));
  if (found.lastOfFile) return addLines(bytes, *found.lastOfFile, added);
  bytes += added + std::string(lineEnd);
}

}  // namespace

std::optional<std::string_view> profileValue(std::string_view bytes, std::string_view section,
                                             std::string_view key) {
  std::size_t from = 0;
  const auto found = search(bytes, section, trimBlanksAndTabs(key), from);
  if (!found.afterSign) return std::nullopt;
  return withoutQuotes(trimBlanksAndTabs(*found.afterSign));
}

std::string withProfileValues(std::string bytes, std::string_view section,
                              std::span<const ProfileKey> keys) {
  std::size_t from = 0;
  for (const auto& [name, value] : keys) {
    if (isProfileName(section, name)) setValue(bytes, section, name, value, from);
  }
  return bytes;
}

bool isProfileName(std::string_view section, std::string_view key) {
  if (section.find_first_of("\r\n") != std::string_view::npos) return false;
  if (key.find_first_of("\r\n=") != std::string_view::npos) return false;
  const auto name = trimBlanksAndTabs(key);
  return !name.starts_with('[') && !name.starts_with(';');
}

}  // namespace kvrnstep::platform
