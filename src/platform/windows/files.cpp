#include "platform/files.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/handle.h"
#include "platform/windows/native_path.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

Handle openFile(const std::u16string& path, DWORD access, DWORD disposition) {
  return Handle(::CreateFileW(text::wide(nativePath(path)), access, kShareAll, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// A pipe or a device would block or never end.
bool isOnDisk(const Handle& file) {
  return file.open() && ::GetFileType(file.get()) == FILE_TYPE_DISK;
}

/// Reads to the end of the file, which may meanwhile have become longer or shorter than `size`.
std::optional<std::string> readAll(HANDLE file, std::size_t size) {
  constexpr std::size_t kLeastRoom = 4096;
  constexpr std::size_t kMostAtOnce = 1U << 30U;
  std::string bytes(size + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const auto room = static_cast<DWORD>(std::min(bytes.size() - filled, kMostAtOnce));
    DWORD count = 0;
    if (::ReadFile(file, bytes.data() + filled, room, &count, nullptr) == FALSE) {
      return std::nullopt;
    }
    if (count == 0) break;
    filled += count;
    if (filled == bytes.size()) bytes.resize(std::max(2 * filled, kLeastRoom));
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

std::optional<std::string> readFile(const std::u16string& path, std::size_t largest) {
  const Handle file = openFile(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size{};
  if (!isOnDisk(file) || ::GetFileSizeEx(file.get(), &size) == FALSE) return std::nullopt;
  if (static_cast<ULONGLONG>(size.QuadPart) > largest) return std::nullopt;
  return readAll(file.get(), static_cast<std::size_t>(size.QuadPart));
}

bool createEmptyFile(const std::u16string& path) {
  return isOnDisk(openFile(path, GENERIC_WRITE, OPEN_ALWAYS));
}

bool pathExists(const std::u16string& path) {
  return ::GetFileAttributesW(text::wide(nativePath(path))) != INVALID_FILE_ATTRIBUTES;
}

bool createFolder(const std::u16string& path) {
  return ::CreateDirectoryW(text::wide(nativePath(path)), nullptr) != FALSE;
}

bool deleteFile(const std::u16string& path) {
  return ::DeleteFileW(text::wide(nativePath(path))) != FALSE;
}

}  // namespace kvrnstep::platform
