#include "storage/list_file.h"

#include <algorithm>
#include <optional>
#include <set>

#include "storage/text_file.h"
#include "text/codepage.h"

namespace kvrnstep::storage {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Takes the first line off the bytes, its end with it.
std::string_view takeLine(std::string_view& bytes) {
  const auto length = std::min(bytes.find('\r'), bytes.size());
  const auto line = bytes.substr(0, length);
  bytes.remove_prefix(length);
  bytes.remove_prefix(std::min(bytes.size(), bytes.starts_with(kLineEnd) ? kLineEnd.size() : 1));
  return line;
}

/// The entries without those of another list. Each entry there removes one equal entry.
ListEntries without(const ListEntries& entries, const ListEntries& others) {
  std::multiset<std::u16string_view> taken(others.begin(), others.end());
  ListEntries left;
  for (const auto& entry : entries) {
    if (const auto found = taken.find(entry); found != taken.end()) {
      taken.erase(found);
    } else {
      left.push_back(entry);
    }
  }
  return left;
}

/// Nothing if Windows-1252 lacks one of the characters.
std::optional<std::string> toWindows1252(std::u16string_view text) {
  constexpr unsigned kBytes = 256;
  std::string bytes;
  for (const char16_t c : text) {
    unsigned byte = std::min<unsigned>(c, 0x80);
    while (byte < kBytes && text::fromWindows1252(static_cast<unsigned char>(byte)) != c) ++byte;
    if (byte == kBytes) return std::nullopt;
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

/// The bytes that replace those of a file. They are in Windows-1252 if the file is and the text can
/// be read back, so that unchanged lines stay byte for byte.
std::string encoded(const std::u16string& text, std::string_view former) {
  const auto bytes = text::isUtf8(former) ? std::nullopt : toWindows1252(text);
  return bytes && text::fromBytes(*bytes) == text ? *bytes : text::toBytes(text);
}

}  // namespace

LoadedList parseList(std::string_view bytes) {
  // The whole file decides on the encoding, including lines that are not read.
  const auto decode = text::isUtf8(bytes) ? text::fromUtf8 : text::fromAnsi;
  LoadedList list;
  const auto breaks = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\r'));
  list.entries.reserve(std::min(breaks + 1, kMostListLines));
  for (std::size_t line = 0; line < kMostListLines && !bytes.empty(); ++line) {
    if (const auto entry = takeLine(bytes); !entry.empty()) list.entries.push_back(decode(entry));
  }
  list.rest = decode(bytes);
  return list;
}

ListEntries ListFile::load() {
  if (!FileExists(path_)) platform::createEmptyFile(path_);
  loaded_ = platform::readFile(path_).value_or("");
  return parseList(loaded_).entries;
}

void ListFile::save(const ListEntries& edited) {
  const ListEntries loaded = parseList(loaded_).entries;
  if (edited == loaded) return;
  platform::changeFile(path_, [&](std::optional<std::string_view> bytes) {
    // If the file is gone, others have not deleted its entries.
    const ListEntries before = bytes ? loaded : ListEntries();
    const auto [found, rest] = parseList(bytes.value_or(""));
    const bool changedByOthers = found != before;
    std::u16string lines;
    const auto add = [&](const ListEntries& entries) {
      for (const auto& entry : entries) lines.append(entry).append(u"\r\n");
    };
    add(changedByOthers ? without(edited, without(before, found)) : edited);
    if (changedByOthers) add(without(without(found, before), without(edited, before)));
    return encoded(lines + rest, bytes.value_or(""));
  });
}

}  // namespace kvrnstep::storage
