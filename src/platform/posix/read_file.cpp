#include "platform/posix/read_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/posix/descriptor.h"

namespace kvrnstep::platform {

namespace {

/// Reads to the end of the file, which may meanwhile have become longer or shorter than `size`.
std::optional<std::string> readAll(int file, std::size_t size) {
  constexpr std::size_t kLeastRoom = 4096;
  std::string bytes(size + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const auto count = ::read(file, bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
    if (filled == bytes.size()) bytes.resize(std::max(2 * filled, kLeastRoom));
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

std::optional<std::string> readNativeFile(const std::string& path, std::size_t largest) {
  // Opening a pipe would otherwise wait for somebody to write to it.
  constexpr int kHow = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  const Descriptor file(::open(path.c_str(), kHow));
  struct stat state {};
  if (!file.open() || ::fstat(file.number(), &state) != 0 || !S_ISREG(state.st_mode)) {
    return std::nullopt;
  }
  const auto size = static_cast<std::size_t>(state.st_size);
  if (size > largest) return std::nullopt;
  return readAll(file.number(), size);
}

}  // namespace kvrnstep::platform
