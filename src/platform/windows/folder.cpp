#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/native_files.h"
#include "text/paths.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform::native {

namespace {

using text::wide;

/// LB_DIR fails for long paths.
Path GetShortPath(const Path& folder) {
  std::array<wchar_t, 255> path{};
  const DWORD length = ::GetShortPathNameW(wide(folder), path.data(), path.size());
  return length < path.size() ? Path(text::utf16(path.data()), length) : Path();
}

/// The files that a list box of the system finds with LB_DIR; none when it fails.
std::vector<Path> listedBySystem(const Path& folder) {
  constexpr WPARAM kWhich = DDL_READONLY | DDL_HIDDEN | DDL_SYSTEM | DDL_ARCHIVE;
  std::vector<Path> names;
  if (folder.empty()) return names;
  const std::unique_ptr<std::remove_pointer_t<HWND>, decltype(&::DestroyWindow)> box(
      ::CreateWindowExW(0, L"LISTBOX", nullptr, WS_CHILD, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                        nullptr, nullptr),
      ::DestroyWindow);
  const auto ask = [&box](UINT what, LRESULT index = 0, const void* data = nullptr) {
    return ::SendMessageW(box.get(), what, static_cast<WPARAM>(index),
                          reinterpret_cast<LPARAM>(data));
  };
  const Path all = folder + u"\\*";
  ask(LB_DIR, kWhich, all.c_str());
  const LRESULT count = ask(LB_GETCOUNT);
  for (LRESULT i = 0; i < count; ++i) {
    const LRESULT length = std::max<LRESULT>(0, ask(LB_GETTEXTLEN, i));
    Path& name = names.emplace_back(static_cast<std::size_t>(length) + 1, u'\0');
    ask(LB_GETTEXT, i, name.data());
    name.pop_back();
  }
  return names;
}

/// The files that a search finds.
std::vector<Path> found(const Path& folder, const Path& start) {
  std::vector<Path> names;
  WIN32_FIND_DATAW file;
  const Path at = folder.empty() ? folder : text::withoutTrailingSeparator(folder) + u'\\';
  const Path all = at + start + u'*';
  const HANDLE first = ::FindFirstFileW(wide(all), &file);
  if (first == INVALID_HANDLE_VALUE) return names;
  const std::unique_ptr<void, decltype(&::FindClose)> search(first, ::FindClose);
  do {
    const bool isFolder = (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder) names.emplace_back(text::utf16(&file.cFileName[0]));
  } while (::FindNextFileW(search.get(), &file) != FALSE);
  return names;
}

}  // namespace

std::vector<Path> filesIn(const Path& folder, const Path& start) {
  if (!start.empty()) return found(folder, start);
  auto names = listedBySystem(GetShortPath(folder));
  return names.empty() ? found(folder, {}) : names;
}

}  // namespace kvrnstep::platform::native
