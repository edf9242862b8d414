#include "platform/files.h"

#include <algorithm>
#include <array>

#include "platform/native_files.h"

namespace kvrnstep::platform {

namespace {

/// Reads to the end of the file, which may meanwhile have become longer or shorter than `size`.
std::optional<std::string> readAll(const native::File& file, std::size_t size) {
  constexpr std::size_t kLeastRoom = 4096;
  std::string bytes(size + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const auto count = file.read(bytes.data() + filled, bytes.size() - filled);
    if (!count) return std::nullopt;
    if (*count == 0) break;
    filled += *count;
    if (filled == bytes.size()) bytes.resize(std::max(2 * filled, kLeastRoom));
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

std::optional<std::string> readFile(const std::u16string& path, std::size_t largest) {
  const auto file = native::openToRead(native::pathOf(path));
  const auto size = file.size();
  if (!size || *size > largest) return std::nullopt;
  return readAll(file, static_cast<std::size_t>(*size));
}

bool fileHolds(const std::u16string& path, std::string_view bytes) {
  const auto file = native::openToRead(native::pathOf(path));
  if (file.size() != bytes.size()) return false;
  std::array<char, 1U << 14U> part{};
  for (;;) {
    const auto count = file.read(part.data(), part.size());
    if (!count || !bytes.starts_with(std::string_view(part.data(), *count))) return false;
    if (*count == 0) return bytes.empty();
    bytes.remove_prefix(*count);
  }
}

bool createEmptyFile(const std::u16string& path) {
  return native::openOrCreate(native::pathOf(path)).size().has_value();
}

std::vector<std::u16string> filesIn(const std::u16string& folder) {
  if (folder.empty()) return {};
  const auto files = native::filesIn(native::pathOf(folder));
  std::vector<std::u16string> names(files.size());
  std::ranges::transform(files, names.begin(), native::textOf);
  return names;
}

bool deleteFile(const std::u16string& path) {
  const auto native = native::pathOf(path);
  return native::targetAt(native) != native::Target::kOther && native::remove(native);
}

}  // namespace kvrnstep::platform
