#include "platform/posix/writable_file.h"

#include <fcntl.h>
#include <unistd.h>

namespace kvrnstep::platform {

bool isWritableFile(const std::string& path, const struct stat& state) {
  return S_ISREG(state.st_mode) && (state.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
         ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

}  // namespace kvrnstep::platform
