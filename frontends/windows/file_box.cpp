#include "file_box.h"

// After the other one.
#include <commdlg.h>

#include <array>
#include <cstddef>

#include "ansi.h"

namespace kvrnstep::windows {

namespace {

constexpr DWORD kOpenFlags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
constexpr DWORD kSaveFlags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;

/// The fields that the dialogs have had from the beginning: 76 bytes where pointers have 4.
constexpr DWORD kRequestSize = offsetof(OPENFILENAMEA, pvReserved);
static_assert(sizeof(void*) != 4 || kRequestSize == 76);

/// The dialogs leave the process in the folder that the user went to; a host's own relative names
/// must not change their meaning.
class KeptFolder {
 public:
  KeptFolder() { ::GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()); }
  ~KeptFolder() { ::SetCurrentDirectoryW(folder_.data()); }
  KeptFolder(const KeptFolder&) = delete;
  KeptFolder& operator=(const KeptFolder&) = delete;

 private:
  std::array<wchar_t, 0x8000> folder_{};
};

/// Display text and pattern in turn, each ended by a NUL, and two more behind the last one.
std::string filterList(const forms::FileDialog& dialog) {
  std::string list;
  for (const forms::FileFilter& filter : dialog.filters) {
    list += toAnsi(filter.text) + '\0' + toAnsi(filter.pattern) + '\0';
  }
  return list + '\0' + '\0';
}

/// The system takes no name with a character that no file name has.
std::string proposedName(const forms::FileDialog& dialog, std::size_t room) {
  return toAnsi(dialog.name).substr(0, room);
}

/// The dialogs begin in a folder only if it is named in full.
std::string fullFolder(const forms::FileDialog& dialog) {
  const std::string named = toAnsi(dialog.folder);
  std::array<char, MAX_PATH> full{};
  const DWORD length =
      ::GetFullPathNameA(named.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  return length == 0 || length >= full.size() ? named : std::string(full.data(), length);
}

using Dialog = BOOL WINAPI(OPENFILENAMEA*);

std::optional<std::u16string> choose(Dialog* show, DWORD flags, const forms::FileDialog& dialog,
                                     HWND owner) {
  const KeptFolder kept;
  const std::string filters = filterList(dialog);
  const std::string folder = fullFolder(dialog);
  const std::string title = toAnsi(dialog.title);
  const std::string extension = toAnsi(dialog.defaultExtension);
  std::array<char, 260> path{};
  proposedName(dialog, path.size() - 1).copy(path.data(), path.size() - 1);

  OPENFILENAMEA request{};
  request.lStructSize = kRequestSize;
  request.hwndOwner = owner;
  request.lpstrFilter = filters.c_str();
  request.nFilterIndex = 1;
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrInitialDir = folder.c_str();
  request.lpstrTitle = title.c_str();
  request.Flags = flags;
  if (!extension.empty()) request.lpstrDefExt = extension.c_str();
  if (show(&request) == FALSE) return std::nullopt;
  return fromAnsi(path.data());
}

}  // namespace

std::optional<std::u16string> chooseFileToOpen(const forms::FileDialog& dialog, HWND owner) {
  return choose(::GetOpenFileNameA, kOpenFlags, dialog, owner);
}

std::optional<std::u16string> chooseFileToSave(const forms::FileDialog& dialog, HWND owner) {
  return choose(::GetSaveFileNameA, kSaveFlags, dialog, owner);
}

}  // namespace kvrnstep::windows
