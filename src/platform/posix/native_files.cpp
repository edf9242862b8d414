#include "platform/native_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>

#include "platform/files.h"
#include "text/codepage.h"

namespace kvrnstep::platform {

bool pathExists(const std::u16string& path) {
  constexpr std::array kNothingThere{ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG, EACCES};
  struct stat state {};
  return ::stat(native::pathOf(path).c_str(), &state) == 0 ||
         std::ranges::find(kNothingThere, errno) == kNothingThere.end();
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

/// The folder's list tells what most entries are. Links, and all entries on file systems that do
/// not tell, have to be asked one by one.
bool isFile(DIR& folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat state {};
  return ::fstatat(::dirfd(&folder), &entry.d_name[0], &state, 0) == 0 && S_ISREG(state.st_mode);
}

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
  const auto count =
      completed([&] { return ::write(system(handle_), bytes.data(), bytes.size()); });
  return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

/// A set-user-id bit is copied only together with the owner, because it would otherwise let
/// everybody run the file as somebody else.
bool File::takeAfter(const Path& other) const {
  constexpr mode_t kPermissions = 0777;
  constexpr mode_t kAllModeBits = 07777;
  struct stat state {};
  if (::stat(other.c_str(), &state) != 0) return false;
  const bool sameGroup = ::fchown(system(handle_), static_cast<uid_t>(-1), state.st_gid) == 0;
  const bool sameOwner = ::fchown(system(handle_), state.st_uid, static_cast<gid_t>(-1)) == 0;
  const mode_t bits = sameGroup && sameOwner ? kAllModeBits : kPermissions;
  return ::fchmod(system(handle_), state.st_mode & bits) == 0;
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

File createNew(const Path& path, bool forUsAlone, bool& taken) {
  File file = openFile(path, O_WRONLY | O_CREAT | O_EXCL, forUsAlone ? 0600 : 0666);
  taken = !file.open() && errno == EEXIST;
  return file;
}

bool rename(const Path& from, const Path& to) {
  return ::rename(from.c_str(), to.c_str()) == 0;
}

bool remove(const Path& path) {
  return ::unlink(path.c_str()) == 0;
}

std::vector<Path> filesIn(const Path& folder) {
  std::vector<Path> names;
  const std::unique_ptr<DIR, CloseFolder> opened(::opendir(folder.c_str()));
  if (!opened) return names;
  while (const dirent* entry = ::readdir(opened.get())) {
    if (isFile(*opened, *entry)) names.emplace_back(&entry->d_name[0]);
  }
  return names;
}

std::uint32_t processNumber() {
  return static_cast<std::uint32_t>(::getpid());
}

}  // namespace native

}  // namespace kvrnstep::platform
