#include <windows.h>

#include <algorithm>
#include <atomic>
#include <vector>

#include "platform/files.h"
#include "platform/windows/handle.h"
#include "platform/windows/native_path.h"
#include "text/numbers.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

/// What is known of the file before it is replaced.
struct Target {
  std::u16string path;
  DWORD attributes;  ///< INVALID_FILE_ATTRIBUTES when the file is not there

  [[nodiscard]] bool exists() const { return attributes != INVALID_FILE_ATTRIBUTES; }
  [[nodiscard]] bool has(DWORD attribute) const {
    return exists() && (attributes & attribute) != 0;
  }
};

/// The path of the file that a link leads to; nothing for a link that leads nowhere.
std::optional<std::u16string> withoutLinks(const std::u16string& path) {
  const Handle file(::CreateFileW(text::wide(path), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.open()) return std::nullopt;
  const DWORD room = ::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::u16string real(room, u'\0');
  real.resize(
      ::GetFinalPathNameByHandleW(file.get(), text::wide(real.data()), room, FILE_NAME_NORMALIZED));
  return real.empty() ? std::nullopt : std::optional(real);
}

std::optional<Target> targetOf(const std::u16string& path) {
  if (path.empty()) return std::nullopt;
  const Target target{path, ::GetFileAttributesW(text::wide(path))};
  if (!target.exists() && ::GetLastError() != ERROR_FILE_NOT_FOUND) return std::nullopt;
  if (!target.has(FILE_ATTRIBUTE_REPARSE_POINT)) return target;
  const auto real = withoutLinks(path);
  return real ? targetOf(*real) : std::nullopt;
}

/// Opening for writing asks for all rights without changing anything.
bool mayBeWritten(const Target& target) {
  if (!target.exists()) return true;
  if (target.has(FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) return false;
  const Handle file(::CreateFileW(text::wide(target.path), GENERIC_WRITE, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return file.open() && ::GetFileType(file.get()) == FILE_TYPE_DISK;
}

/// Passes on who may do what with a file.
void copyRights(const std::u16string& from, const std::u16string& to) {
  constexpr SECURITY_INFORMATION kRights = DACL_SECURITY_INFORMATION;
  DWORD size = 0;
  ::GetFileSecurityW(text::wide(from), kRights, nullptr, 0, &size);
  std::vector<BYTE> rights(size);
  if (size > 0 &&
      ::GetFileSecurityW(text::wide(from), kRights, rights.data(), size, &size) != FALSE) {
    ::SetFileSecurityW(text::wide(to), kRights, rights.data());
  }
}

/// A file under a passing name, which is gone again unless it has taken the target's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::u16string& folder) : file_(create(folder)) {}
  ~TemporaryFile() {
    file_.close();
    if (!path_.empty()) ::DeleteFileW(text::wide(path_));
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] bool open() const { return file_.open(); }

  bool write(std::string_view bytes) {
    constexpr std::size_t kMostAtOnce = 1U << 30U;
    while (!bytes.empty()) {
      const auto part = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
      DWORD count = 0;
      if (::WriteFile(file_.get(), bytes.data(), part, &count, nullptr) == FALSE) return false;
      bytes.remove_prefix(count);
    }
    return true;
  }

  /// The bytes must be on disk before the name is, or a power failure could leave a target that
  /// is empty. The move is one step for the file system; the system's function that replaces a
  /// file and keeps its rights takes two, and a process killed between them leaves no target.
  bool replace(const Target& target) {
    if (::FlushFileBuffers(file_.get()) == FALSE) return false;
    file_.close();
    if (target.exists()) {
      copyRights(target.path, path_);
      ::SetFileAttributesW(text::wide(path_), target.attributes);
    }
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (::MoveFileExW(text::wide(path_), text::wide(target.path), kHow) == FALSE) return false;
    path_.clear();
    return true;
  }

 private:
  /// The name is not guessed at random: a name in use, by whomever, is passed over.
  HANDLE create(const std::u16string& folder) {
    constexpr int kMostAttempts = 1000;
    static std::atomic<unsigned> counter{0};
    const std::u16string start =
        folder + u".kvrnstep-" + text::decimal(::GetCurrentProcessId()) + u'-';
    for (int i = 0; i < kMostAttempts; ++i) {
      path_ = nativePath(start + text::decimal(counter++));
      const HANDLE file = ::CreateFileW(text::wide(path_), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
      if (file != INVALID_HANDLE_VALUE) return file;
      if (::GetLastError() != ERROR_FILE_EXISTS) break;
    }
    path_.clear();
    return INVALID_HANDLE_VALUE;
  }

  std::u16string path_;
  Handle file_;
};

bool replaceTarget(const Target& target, std::string_view bytes) {
  TemporaryFile file(folderPart(target.path));
  return file.open() && file.write(bytes) && file.replace(target);
}

}  // namespace

bool overwriteFile(const std::u16string& path, std::string_view bytes) {
  const auto target = targetOf(nativePath(path));
  return target && mayBeWritten(*target) && replaceTarget(*target, bytes);
}

bool replaceFile(const std::u16string& path, std::string_view bytes) {
  const auto target = targetOf(nativePath(path));
  if (!target || !mayBeWritten(*target)) return false;
  if (target->exists() && readFile(target->path, bytes.size()) == bytes) return true;
  return replaceTarget(*target, bytes);
}

}  // namespace kvrnstep::platform
