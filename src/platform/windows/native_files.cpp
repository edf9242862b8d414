#include "platform/native_files.h"

#include <windows.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/windows/full_path.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

using text::wide;

std::u16string fullPath(const std::u16string& path) {
  const DWORD room = ::GetFullPathNameW(wide(path), 0, nullptr, nullptr);
  std::u16string full(room, u'\0');
  full.resize(::GetFullPathNameW(wide(path), room, wide(full.data()), nullptr));
  return full;
}

bool pathExists(const std::u16string& path) {
  return ::GetFileAttributesW(wide(native::pathOf(path))) != INVALID_FILE_ATTRIBUTES;
}

bool createFolder(const std::u16string& path) {
  return ::CreateDirectoryW(wide(native::pathOf(path)), nullptr) != FALSE;
}

namespace native {

namespace {

HANDLE system(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

/// The system takes 32-bit counts.
DWORD atOnce(std::size_t size) {
  constexpr std::size_t kMostAtOnce = 1U << 30U;
  return static_cast<DWORD>(std::min(size, kMostAtOnce));
}

/// @param shared whether others may open, change and delete the file meanwhile
File openFile(const Path& path, DWORD access, DWORD disposition, bool shared = true) {
  constexpr DWORD kWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = ::CreateFileW(wide(path), access, shared ? kWithAll : 0, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  return {path, reinterpret_cast<std::intptr_t>(file)};
}

bool hasAttribute(const Path& path, DWORD which) {
  const DWORD attributes = ::GetFileAttributesW(wide(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & which) != 0;
}

/// Not only links have tags. Files in a cloud, deduplicated and projected files have tags too, and
/// are opened by their own names.
bool standsForAnother(const Path& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(wide(path), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  ::FindClose(search);
  const bool tagged = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const DWORD tag = found.dwReserved0;
  return tagged && (tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT);
}

}  // namespace

Path pathOf(const std::u16string& path) {
  // The limit for folders is lower than that for files, and a temporary file beside this one needs
  // room for its name.
  constexpr std::size_t kUsualLimit = MAX_PATH - 40;
  if (path.find(u'\0') != std::u16string::npos) return {};
  if (path.size() < kUsualLimit || path.starts_with(u"\\\\?\\")) return path;
  const std::u16string full = fullPath(path);
  if (full.starts_with(u"\\\\")) return u"\\\\?\\UNC\\" + full.substr(2);
  return u"\\\\?\\" + full;
}

std::u16string textOf(const Path& path) {
  return path;
}

Path folderPart(const Path& path) {
  return path.substr(0, path.find_last_of(u"\\/:") + 1);
}

std::optional<Path> withoutLinks(const Path& path) {
  if (!standsForAnother(path)) return path;
  const File file = openFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  if (!file.open()) return std::nullopt;
  const HANDLE handle = system(file.handle());
  const DWORD room = ::GetFinalPathNameByHandleW(handle, nullptr, 0, FILE_NAME_NORMALIZED);
  Path real(room, u'\0');
  real.resize(::GetFinalPathNameByHandleW(handle, wide(real.data()), room, FILE_NAME_NORMALIZED));
  return real.empty() ? std::nullopt : std::optional(real);
}

Target targetAt(const Path& path) {
  if (hasAttribute(path, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) return Target::kOther;
  // Opening it for writing is the only way to ask for all rights, and changes nothing.
  const File file = openFile(path, GENERIC_WRITE, OPEN_EXISTING);
  if (!file.open() && ::GetLastError() == ERROR_FILE_NOT_FOUND) return Target::kNothing;
  return file.size() ? Target::kWritableFile : Target::kOther;
}

std::optional<std::uint64_t> File::size() const {
  LARGE_INTEGER size{};
  const bool known = ::GetFileType(system(handle_)) == FILE_TYPE_DISK &&
                     ::GetFileSizeEx(system(handle_), &size) != FALSE;
  return known ? std::optional(static_cast<std::uint64_t>(size.QuadPart)) : std::nullopt;
}

std::optional<std::size_t> File::read(char* bytes, std::size_t most) const {
  DWORD count = 0;
  const BOOL done = ::ReadFile(system(handle_), bytes, atOnce(most), &count, nullptr);
  return done != FALSE ? std::optional<std::size_t>(count) : std::nullopt;
}

std::size_t File::write(std::string_view bytes) const {
  DWORD count = 0;
  const BOOL done =
      ::WriteFile(system(handle_), bytes.data(), atOnce(bytes.size()), &count, nullptr);
  return done != FALSE ? count : 0;
}

bool File::cutTo(std::uint64_t size) const {
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(size);
  return ::SetFilePointerEx(system(handle_), end, nullptr, FILE_BEGIN) != FALSE &&
         ::SetEndOfFile(system(handle_)) != FALSE;
}

/// Rights that can't be passed on stay as the folder has given them.
bool File::takeAfter(const Path& other) const {
  constexpr SECURITY_INFORMATION kRights = DACL_SECURITY_INFORMATION;
  DWORD size = 0;
  ::GetFileSecurityW(wide(other), kRights, nullptr, 0, &size);
  std::vector<BYTE> rights(size);
  if (size > 0 && ::GetFileSecurityW(wide(other), kRights, rights.data(), size, &size) != FALSE) {
    ::SetFileSecurityW(wide(path_), kRights, rights.data());
  }
  // The mark of a file whose bytes are not on this machine; those of the new file are.
  const DWORD attributes = ::GetFileAttributesW(wide(other)) & ~DWORD{FILE_ATTRIBUTE_OFFLINE};
  ::SetFileAttributesW(wide(path_), attributes);
  return true;
}

bool File::sync() const {
  return ::FlushFileBuffers(system(handle_)) != FALSE;
}

bool File::close() {
  return !open() || ::CloseHandle(system(std::exchange(handle_, kNone))) != FALSE;
}

File openToRead(const Path& path) {
  return openFile(path, GENERIC_READ, OPEN_EXISTING);
}

File openOrCreate(const Path& path) {
  return openFile(path, GENERIC_WRITE, OPEN_ALWAYS);
}

/// `forUsAlone` needs nothing here: the file is not shared, so nobody else can read it until it is
/// closed.
File createNew(const Path& path, bool /*forUsAlone*/, Creation& result) {
  File file = openFile(path, GENERIC_WRITE, CREATE_NEW, false);
  const DWORD error = file.open() ? ERROR_SUCCESS : ::GetLastError();
  result = error == ERROR_SUCCESS         ? Creation::kDone
           : error == ERROR_FILE_EXISTS   ? Creation::kNameTaken
           : error == ERROR_ACCESS_DENIED ? Creation::kFolderRefuses
                                          : Creation::kFailed;
  return file;
}

/// MoveFileEx is one step of the file system. ReplaceFile takes two, and a process that is killed
/// between them leaves no target.
bool rename(const Path& from, const Path& to) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  constexpr int kAttempts = 20;
  constexpr DWORD kPause = 50;  // milliseconds
  for (int attempt = 1; ::MoveFileExW(wide(from), wide(to), kHow) == FALSE; ++attempt) {
    // A virus scanner or an indexer holds a file for a moment after it has changed.
    const DWORD error = ::GetLastError();
    const bool held = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!held || attempt == kAttempts) return false;
    ::Sleep(kPause);
  }
  return true;
}

bool remove(const Path& path) {
  return ::DeleteFileW(wide(path)) != FALSE;
}

std::uint32_t processNumber() {
  return ::GetCurrentProcessId();
}

/// A file that is still being written is not shared, so it cannot be deleted.
void removeLeftover(const Path& path, std::uint32_t process) {
  const HANDLE living = ::OpenProcess(SYNCHRONIZE, FALSE, process);
  const bool gone = living == nullptr && ::GetLastError() == ERROR_INVALID_PARAMETER;
  if (living != nullptr) ::CloseHandle(living);
  if (gone) remove(path);
}

Path privateFolder() {
  Path folder(MAX_PATH + 1, u'\0');
  folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), wide(folder.data())));
  return folder;
}

/// The system locks no folders. Its own functions for settings lock the file.
File lockFolder(const Path& folder) {
  return {folder, reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE)};
}

}  // namespace native

}  // namespace kvrnstep::platform
