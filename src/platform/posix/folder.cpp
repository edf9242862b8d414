#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

#include "platform/files.h"
#include "platform/posix/native_path.h"
#include "platform/posix/writable_file.h"
#include "text/codepage.h"

namespace kvrnstep::platform {

namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The folder's own list says what most entries are; only of links, and on file systems that do
/// not say, the file itself has to be asked.
bool isFile(DIR& folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat state {};
  return ::fstatat(::dirfd(&folder), &entry.d_name[0], &state, 0) == 0 && S_ISREG(state.st_mode);
}

}  // namespace

std::vector<std::u16string> filesIn(const std::u16string& folder) {
  std::vector<std::u16string> names;
  const std::unique_ptr<DIR, CloseFolder> opened(::opendir(nativePath(folder).c_str()));
  if (!opened) return names;
  while (const dirent* entry = ::readdir(opened.get())) {
    if (!isFile(*opened, *entry)) continue;
    auto name = text::fromBytes(&entry->d_name[0]);
    // A name in another encoding could not be found again by its characters.
    if (nativePath(name) == &entry->d_name[0]) names.push_back(std::move(name));
  }
  return names;
}

bool deleteFile(const std::u16string& path) {
  const std::string native = nativePath(path);
  struct stat state {};
  // A link that leads nowhere may go.
  if (::stat(native.c_str(), &state) == 0 && !isWritableFile(native, state)) return false;
  return ::unlink(native.c_str()) == 0;
}

}  // namespace kvrnstep::platform
