#include "platform/posix/read_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/posix/descriptor.h"

namespace kvrnstep::platform {

namespace {

/// A regular file, opened for reading.
struct OpenFile {
  explicit OpenFile(const std::string& path) : descriptor(::open(path.c_str(), kHow)) {
    struct stat state {};
    readable =
        descriptor.open() && ::fstat(descriptor.number(), &state) == 0 && S_ISREG(state.st_mode);
    size = readable ? static_cast<std::size_t>(state.st_size) : 0;
  }

  // Opening a pipe would otherwise wait for somebody to write to it.
  static constexpr int kHow = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

  Descriptor descriptor;
  bool readable = false;
  std::size_t size = 0;  ///< in bytes; 0 for files whose size the system does not tell
};

/// Reads what comes next, at most `room` bytes.
/// @return how many; 0 at the end of the file; nothing when it cannot be read
std::optional<std::size_t> readSome(const OpenFile& file, char* place, std::size_t room) {
  ssize_t count = 0;
  do {
    count = ::read(file.descriptor.number(), place, room);
  } while (count < 0 && errno == EINTR);
  if (count < 0) return std::nullopt;
  return static_cast<std::size_t>(count);
}

}  // namespace

std::optional<std::string> readNativeFile(const std::string& path) {
  constexpr std::size_t kLeastRoom = 4096;
  const OpenFile file(path);
  if (!file.readable) return std::nullopt;
  // The file may have become longer meanwhile, so that there is always room for more.
  std::string bytes(file.size + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const auto count = readSome(file, bytes.data() + filled, bytes.size() - filled);
    if (!count) return std::nullopt;
    if (*count == 0) break;
    filled += *count;
    if (filled == bytes.size()) bytes.resize(std::max(2 * filled, kLeastRoom));
  }
  bytes.resize(filled);
  return bytes;
}

bool nativeFileHolds(const std::string& path, std::string_view bytes) {
  const OpenFile file(path);
  if (!file.readable || file.size != bytes.size()) return false;
  std::array<char, 16 * 1024> part;
  for (;;) {
    const auto count = readSome(file, part.data(), part.size());
    if (!count) return false;
    if (*count == 0) return bytes.empty();
    if (!bytes.starts_with(std::string_view(part.data(), *count))) return false;
    bytes.remove_prefix(*count);
  }
}

}  // namespace kvrnstep::platform
