#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/posix/read_file.h"

namespace kvrnstep::platform {

std::optional<std::string> readFile(const std::u16string& path, std::size_t largest) {
  return readNativeFile(nativePath(path), largest);
}

bool createEmptyFile(const std::u16string& path) {
  constexpr int kHow = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  const Descriptor file(::open(nativePath(path).c_str(), kHow, 0666));
  struct stat state {};
  return file.open() && ::fstat(file.number(), &state) == 0 && S_ISREG(state.st_mode);
}

bool pathExists(const std::u16string& path) {
  constexpr std::array kNothingThere{ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG, EACCES};
  struct stat state {};
  return ::stat(nativePath(path).c_str(), &state) == 0 ||
         std::ranges::find(kNothingThere, errno) == kNothingThere.end();
}

bool createFolder(const std::u16string& path) {
  return ::mkdir(nativePath(path).c_str(), 0777) == 0;
}

}  // namespace kvrnstep::platform
