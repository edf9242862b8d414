#include "platform/native_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <thread>

#include "platform/files.h"
#include "text/codepage.h"

namespace kvrnstep::platform {

bool pathExists(const std::u16string& path) {
  struct stat state {};
  return ::stat(native::pathOf(path).c_str(), &state) == 0;
}

bool createFolder(const std::u16string& path) {
  return ::mkdir(native::pathOf(path).c_str(), 0777) == 0;
}

namespace native {

namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

int system(std::intptr_t handle) {
  return static_cast<int>(handle);
}

/// Calls again as long as signals interrupt the call.
template <class Call>
auto completed(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// O_NONBLOCK, because opening a pipe would wait for a program at its other end.
File openFile(const Path& path, int how, mode_t mode = 0) {
  how |= O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  return {path, completed([&] { return ::open(path.c_str(), how, mode); })};
}

std::optional<Path> linkTarget(const Path& path) {
  std::array<char, PATH_MAX> target{};
  const auto length = ::readlink(path.c_str(), target.data(), target.size());
  if (length < 0) return std::nullopt;
  return Path(target.data(), static_cast<std::size_t>(length));
}

/// The list of the folder says what most entries are. Links must be looked up one by one, and so
/// must all entries on file systems whose lists do not say it.
bool isFile(DIR& folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat state {};
  return ::fstatat(::dirfd(&folder), &entry.d_name[0], &state, 0) == 0 && S_ISREG(state.st_mode);
}

/// The folder of a name alone is the working folder.
const char* openable(const Path& folder) {
  return folder.empty() ? "." : folder.c_str();
}

/// While it lives, a write beyond the largest size that a file may have fails, and no signal ends
/// the process. How the host deals with the signal stays as it is.
class NoFileSizeSignal {
 public:
  NoFileSizeSignal() {
    ::sigemptyset(&signal_);
    ::sigaddset(&signal_, SIGXFSZ);
    ::pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~NoFileSizeSignal() {
    const int error = errno;
    constexpr timespec kNow{};
    if (!wasPending_ && isPending()) ::sigtimedwait(&signal_, nullptr, &kNow);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = error;
  }
  NoFileSizeSignal(const NoFileSizeSignal&) = delete;
  NoFileSizeSignal& operator=(const NoFileSizeSignal&) = delete;

 private:
  static bool isPending() {
    sigset_t pending;
    return ::sigpending(&pending) == 0 && ::sigismember(&pending, SIGXFSZ) == 1;
  }

  sigset_t signal_{};
  sigset_t before_{};
  bool wasPending_ = isPending();
};

}  // namespace

Path pathOf(const std::u16string& path) {
  return path.find(u'\0') == std::u16string::npos ? text::toUtf8(path) : Path();
}

std::u16string textOf(const Path& path) {
  return text::fromBytes(path);
}

Path folderPart(const Path& path) {
  return path.substr(0, path.rfind('/') + 1);
}

std::optional<Path> withoutLinks(const Path& path) {
  constexpr int kMostLinks = 40;
  Path real = path;
  for (int i = 0; i <= kMostLinks; ++i) {
    const auto target = linkTarget(real);
    if (!target && (errno == EINVAL || errno == ENOENT)) return real;
    if (!target) return std::nullopt;
    real = target->starts_with('/') ? *target : folderPart(real) + *target;
  }
  return std::nullopt;
}

Target targetAt(const Path& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) {
    return errno == ENOENT ? Target::kNothing : Target::kOther;
  }
  const bool writable = S_ISREG(state.st_mode) &&
                        (state.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
                        ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
  return writable ? Target::kWritableFile : Target::kOther;
}

std::optional<std::uint64_t> File::size() const {
  struct stat state {};
  if (::fstat(system(handle_), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
  return static_cast<std::uint64_t>(state.st_size);
}

std::optional<std::size_t> File::read(char* bytes, std::size_t most) const {
  const auto count = completed([&] { return ::read(system(handle_), bytes, most); });
  return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

std::size_t File::write(std::string_view bytes) const {
  const NoFileSizeSignal noSignal;
  const auto count =
      completed([&] { return ::write(system(handle_), bytes.data(), bytes.size()); });
  return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

bool File::cutTo(std::uint64_t size) const {
  return ::ftruncate(system(handle_), static_cast<off_t>(size)) == 0;
}

bool File::sync() const {
  return ::fsync(system(handle_)) == 0;
}

bool File::close() {
  const int open = system(std::exchange(handle_, kNone));
  return open < 0 || ::close(open) == 0;
}

File openToRead(const Path& path) {
  return openFile(path, O_RDONLY);
}

File openOrCreate(const Path& path) {
  return openFile(path, O_WRONLY | O_CREAT, 0666);
}

/// Processes in different containers may see each other's files, but not each other's numbers. The
/// lock tells them that the file is still being written.
File createNew(const Path& path, bool forUsAlone, Creation& result) {
  File file = openFile(path, O_WRONLY | O_CREAT | O_EXCL, forUsAlone ? 0600 : 0666);
  result = file.open()                         ? Creation::kDone
           : errno == EEXIST                   ? Creation::kNameTaken
           : errno == EACCES || errno == EPERM ? Creation::kFolderRefuses
                                               : Creation::kFailed;
  if (file.open()) ::flock(system(file.handle()), LOCK_EX | LOCK_NB);
  return file;
}

bool rename(const Path& from, const Path& to) {
  return ::rename(from.c_str(), to.c_str()) == 0;
}

bool remove(const Path& path) {
  return ::unlink(path.c_str()) == 0;
}

std::vector<Path> filesIn(const Path& folder, const Path& start) {
  std::vector<Path> names;
  const std::unique_ptr<DIR, CloseFolder> opened(::opendir(openable(folder)));
  if (!opened) return names;
  while (const dirent* entry = ::readdir(opened.get())) {
    Path name = &entry->d_name[0];
    if (!name.starts_with(start) || !text::isUtf8(name)) continue;
    if (isFile(*opened, *entry)) names.push_back(std::move(name));
  }
  return names;
}

std::uint32_t processNumber() {
  return static_cast<std::uint32_t>(::getpid());
}

void removeLeftover(const Path& path, std::uint32_t process) {
  if (::kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH) return;
  const File file = openFile(path, O_RDONLY | O_NOFOLLOW);
  struct stat state {};
  const int handle = system(file.handle());
  const bool ours =
      ::fstat(handle, &state) == 0 && S_ISREG(state.st_mode) && state.st_uid == ::geteuid();
  if (ours && ::flock(handle, LOCK_EX | LOCK_NB) == 0) remove(path);
}

/// The environment of a program that runs with the rights of another user cannot be trusted.
Path privateFolder() {
  const char* state = ::secure_getenv("XDG_STATE_HOME");
  const char* home = ::secure_getenv("HOME");
  Path folder;
  if (state != nullptr && *state == '/') {
    folder = state;
  } else if (home != nullptr && *home == '/') {
    folder = Path(home) + "/.local/state";
  } else {
    return {};
  }
  folder += "/listwright/";
  for (auto end = folder.find('/', 1); end != Path::npos; end = folder.find('/', end + 1)) {
    ::mkdir(folder.substr(0, end).c_str(), 0700);
  }
  return folder;
}

File lockFolder(const Path& folder) {
  constexpr auto kLongest = std::chrono::seconds(2);
  constexpr auto kPause = std::chrono::microseconds(200);
  const auto until = std::chrono::steady_clock::now() + kLongest;
  File file = openFile(openable(folder), O_RDONLY | O_DIRECTORY);
  while (file.open() && ::flock(system(file.handle()), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() > until) file.close();
    std::this_thread::sleep_for(kPause);
  }
  return file;
}

}  // namespace native

}  // namespace kvrnstep::platform
