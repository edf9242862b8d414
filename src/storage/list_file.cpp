#include "storage/list_file.h"

#include <algorithm>

#include "storage/text_file.h"

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

}  // namespace

LoadedList parseList(std::string_view bytes) {
  // All lines decide on the encoding, those that are not read included.
  const auto decode = text::isUtf8(bytes) ? text::fromUtf8 : text::fromAnsi;
  LoadedList list;
  const auto breaks = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\r'));
  list.entries.reserve(std::min(breaks + 1, kMostListLines));
  for (std::size_t line = 0; line < kMostListLines && !bytes.empty(); ++line) {
    if (const auto entry = takeLine(bytes); !entry.empty()) list.entries.push_back(decode(entry));
  }
  list.whole = bytes.empty();
  return list;
}

LoadedList readListFile(const std::u16string& path) {
  if (!FileExists(path)) platform::createEmptyFile(path);
  const auto bytes = platform::readFile(path);
  return bytes ? parseList(*bytes) : LoadedList();
}

}  // namespace kvrnstep::storage
