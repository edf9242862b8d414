#include "platform/windows/native_path.h"

#include <windows.h>

#include <string_view>

#include "text/windows/wide.h"

namespace kvrnstep::platform {

std::u16string nativePath(const std::u16string& path) {
  // Folders have room for a file name less than files.
  constexpr std::size_t kUsualLimit = MAX_PATH - 13;
  if (path.find(u'\0') != std::u16string::npos) return {};
  if (path.size() < kUsualLimit || path.starts_with(u"\\\\?\\")) return path;
  const std::u16string full = fullPath(path);
  if (full.starts_with(u"\\\\")) return u"\\\\?\\UNC\\" + full.substr(2);
  return u"\\\\?\\" + full;
}

std::u16string fullPath(const std::u16string& path) {
  const DWORD room = ::GetFullPathNameW(text::wide(path), 0, nullptr, nullptr);
  std::u16string full(room, u'\0');
  full.resize(::GetFullPathNameW(text::wide(path), room, text::wide(full.data()), nullptr));
  return full;
}

std::u16string folderPart(const std::u16string& path) {
  return path.substr(0, path.find_last_of(u"\\/:") + 1);
}

}  // namespace kvrnstep::platform
