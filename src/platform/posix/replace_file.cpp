#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>

#include "platform/files.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/posix/read_file.h"
#include "platform/posix/writable_file.h"

namespace kvrnstep::platform {

namespace {

constexpr mode_t kPermissions = 0777;
constexpr mode_t kAllModeBits = 07777;

std::optional<std::string> linkTarget(const std::string& path) {
  std::array<char, PATH_MAX> target{};
  const auto length = ::readlink(path.c_str(), target.data(), target.size());
  if (length < 0) return std::nullopt;
  return std::string(target.data(), static_cast<std::size_t>(length));
}

/// The path of the file that a chain of links leads to, also when that file is not there yet.
/// Nothing for links that lead in a circle, and for one that cannot be read: it would be replaced
/// itself.
std::optional<std::string> withoutLinks(std::string path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i <= kMostLinks; ++i) {
    const auto target = linkTarget(path);
    if (!target && (errno == EINVAL || errno == ENOENT)) return path;
    if (!target) return std::nullopt;
    const bool fromRoot = target->substr(0, 1) == "/";
    path = fromRoot ? *target : folderPart(path) + *target;
  }
  return std::nullopt;
}

/// What is known of the file before it is replaced.
struct Target {
  std::string path;
  std::optional<struct stat> state;  ///< nothing when the file is not there
};

std::optional<Target> targetOf(const std::string& path) {
  if (path.empty()) return std::nullopt;
  auto real = withoutLinks(path);
  if (!real) return std::nullopt;
  struct stat state {};
  if (::stat(real->c_str(), &state) == 0) return Target{std::move(*real), state};
  if (errno != ENOENT) return std::nullopt;
  return Target{std::move(*real), std::nullopt};
}

bool mayBeWritten(const Target& target) {
  return !target.state || isWritableFile(target.path, *target.state);
}

bool holds(const Target& target, std::string_view bytes) {
  return target.state && static_cast<std::size_t>(target.state->st_size) == bytes.size() &&
         readNativeFile(target.path) == bytes;
}

/// A file under a passing name, which is gone again unless it has taken the target's place.
class TemporaryFile {
 public:
  /// @param mode permissions, less those that the process withholds from new files
  TemporaryFile(const std::string& folder, mode_t mode) : file_(create(folder, mode)) {}
  ~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] bool open() const { return file_.open(); }

  /// Passes on owner and permissions of the file that will be replaced. The rights of a file that
  /// runs as its owner go only with the owner.
  bool takeAfter(const struct stat& state) {
    const bool sameGroup = ::fchown(file_.number(), static_cast<uid_t>(-1), state.st_gid) == 0;
    const bool sameOwner = ::fchown(file_.number(), state.st_uid, static_cast<gid_t>(-1)) == 0;
    const mode_t bits = sameGroup && sameOwner ? kAllModeBits : kPermissions;
    return ::fchmod(file_.number(), state.st_mode & bits) == 0;
  }

  bool write(std::string_view bytes) {
    while (!bytes.empty()) {
      const auto count = ::write(file_.number(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  /// The bytes must be on disk before the name is, or a power failure could leave a target that
  /// is empty.
  bool replace(const std::string& target) {
    if (::fsync(file_.number()) != 0 || !file_.close()) return false;
    if (::rename(path_.c_str(), target.c_str()) != 0) return false;
    path_.clear();
    return true;
  }

 private:
  /// The name is short whatever the target's, which may be as long as the system allows. It is
  /// not guessed at random: a name in use, by whomever, is passed over.
  int create(const std::string& folder, mode_t mode) {
    constexpr int kMostAttempts = 1000;
    static std::atomic<unsigned> counter{0};
    const std::string start = folder + ".kvrnstep-" + std::to_string(::getpid()) + "-";
    for (int i = 0; i < kMostAttempts; ++i) {
      path_ = start + std::to_string(counter++);
      const int file = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
      if (file >= 0) return file;
      if (errno != EEXIST && errno != EINTR) break;
    }
    path_.clear();
    return -1;
  }

  std::string path_;
  Descriptor file_;
};

bool replaceTarget(const Target& target, std::string_view bytes) {
  // Nobody may read what will not be theirs to read, not even while it is being written.
  TemporaryFile file(folderPart(target.path), target.state ? 0600 : 0666);
  if (!file.open() || !file.write(bytes)) return false;
  if (target.state && !file.takeAfter(*target.state)) return false;
  return file.replace(target.path);
}

}  // namespace

bool overwriteFile(const std::u16string& path, std::string_view bytes) {
  const auto target = targetOf(nativePath(path));
  return target && mayBeWritten(*target) && replaceTarget(*target, bytes);
}

bool replaceFile(const std::u16string& path, std::string_view bytes) {
  const auto target = targetOf(nativePath(path));
  if (!target || !mayBeWritten(*target)) return false;
  return holds(*target, bytes) || replaceTarget(*target, bytes);
}

}  // namespace kvrnstep::platform
