#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/files.h"
#include "platform/windows/native_path.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

using Names = std::vector<std::u16string>;

struct DestroyBox {
  using pointer = HWND;
  void operator()(HWND box) const { ::DestroyWindow(box); }
};
using Box = std::unique_ptr<HWND, DestroyBox>;

struct CloseSearch {
  using pointer = HANDLE;
  void operator()(HANDLE search) const { ::FindClose(search); }
};

/// A list box has no room for a long path.
std::u16string GetShortPath(const std::u16string& folder) {
  std::array<wchar_t, 255> path{};
  const DWORD length = ::GetShortPathNameW(text::wide(folder), path.data(), path.size());
  return length < path.size() ? std::u16string(text::utf16(path.data()), length) : u"";
}

std::u16string entryOf(HWND box, WPARAM index) {
  const LRESULT length = std::max<LRESULT>(0, ::SendMessageW(box, LB_GETTEXTLEN, index, 0));
  std::u16string entry(static_cast<std::size_t>(length) + 1, u'\0');
  ::SendMessageW(box, LB_GETTEXT, index, reinterpret_cast<LPARAM>(entry.data()));
  entry.pop_back();
  return entry;
}

/// As a list box of the system fills itself, with long names. Empty also when it cannot.
Names listedBySystem(const std::u16string& folder) {
  constexpr WPARAM kWhich = DDL_READONLY | DDL_HIDDEN | DDL_SYSTEM | DDL_ARCHIVE;
  Names names;
  const std::u16string path = GetShortPath(folder);
  if (path.empty()) return names;
  const Box box(::CreateWindowExW(0, L"LISTBOX", nullptr, WS_CHILD, 0, 0, 0, 0, HWND_MESSAGE,
                                  nullptr, nullptr, nullptr));
  const std::u16string all = path + u"\\*";
  ::SendMessageW(box.get(), LB_DIR, kWhich, reinterpret_cast<LPARAM>(text::wide(all)));
  const LRESULT count = ::SendMessageW(box.get(), LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) names.push_back(entryOf(box.get(), static_cast<WPARAM>(i)));
  return names;
}

Names found(const std::u16string& folder) {
  Names names;
  WIN32_FIND_DATAW file;
  const std::u16string all = nativePath(folder + u"\\*");
  const HANDLE first = ::FindFirstFileW(text::wide(all), &file);
  if (first == INVALID_HANDLE_VALUE) return names;
  const std::unique_ptr<HANDLE, CloseSearch> search(first);
  do {
    const bool isFolder = (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder) names.emplace_back(text::utf16(&file.cFileName[0]));
  } while (::FindNextFileW(search.get(), &file) != FALSE);
  return names;
}

}  // namespace

std::vector<std::u16string> filesIn(const std::u16string& folder) {
  if (folder.empty()) return {};
  Names names = listedBySystem(folder);
  return names.empty() ? found(folder) : names;
}

}  // namespace kvrnstep::platform
