#include "file_box.h"

// After the other one.
#include <commdlg.h>

#include <array>
#include <cstddef>

#include "text/codepage.h"
#include "text/text.h"
#include "text/windows/ansi.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

constexpr DWORD kOpenFlags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
constexpr DWORD kSaveFlags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;

/// Keeps the process's current folder, which the dialogs change. The host's relative paths would
/// mean something else afterwards.
class KeptFolder {
 public:
  KeptFolder() { ::GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()); }
  ~KeptFolder() { ::SetCurrentDirectoryW(folder_.data()); }
  KeptFolder(const KeptFolder&) = delete;
  KeptFolder& operator=(const KeptFolder&) = delete;

 private:
  std::array<wchar_t, 0x8000> folder_{};
};

/// The dialogs that take texts in the system's code page …
struct InCodePage {
  using Request = OPENFILENAMEA;
  using Char = char;
  /// Nothing for a text that it can't hold.
  static std::optional<std::string> converted(std::u16string_view text) {
    return text::toAnsi(text);
  }
  static std::u16string restored(std::string_view buffer) { return text::fromAnsi(buffer); }
  static BOOL open(Request* request) { return ::GetOpenFileNameA(request); }
  static BOOL save(Request* request) { return ::GetSaveFileNameA(request); }
};

/// … and those for all other texts.
struct InUtf16 {
  using Request = OPENFILENAMEW;
  using Char = wchar_t;
  static std::optional<std::wstring> converted(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
  }
  static std::u16string restored(std::wstring_view buffer) {
    return {buffer.begin(), buffer.end()};
  }
  static BOOL open(Request* request) { return ::GetOpenFileNameW(request); }
  static BOOL save(Request* request) { return ::GetSaveFileNameW(request); }
};

/// The structure without the fields that later versions have added: 76 bytes with 32-bit pointers.
constexpr DWORD kRequestSize = offsetof(OPENFILENAMEA, pvReserved);
static_assert(sizeof(void*) != 4 || kRequestSize == 76);
static_assert(kRequestSize == offsetof(OPENFILENAMEW, pvReserved));

/// Pairs of display text and pattern, each ended by a NUL; another NUL ends the list.
std::u16string filterList(const forms::FileDialog& dialog) {
  std::u16string list;
  for (const forms::FileFilter& filter : dialog.filters) {
    for (const std::u16string_view part : {filter.text, filter.pattern}) {
      list += part;
      list += u'\0';
    }
  }
  return list + u'\0' + u'\0';
}

/// Without the characters that file names can't have, because the dialogs don't open with those.
std::u16string proposedName(std::u16string name) {
  static constexpr std::u16string_view kNeverInNames = u"<>:\"/\\|?*";
  std::erase_if(name, [](char16_t character) {
    return character < u' ' || kNeverInNames.find(character) != std::u16string_view::npos;
  });
  return name;
}

/// The dialogs ignore a relative path.
std::u16string fullFolder(const std::u16string& folder) {
  std::array<wchar_t, 0x8000> full{};
  const DWORD length =
      ::GetFullPathNameW(text::wide(folder), static_cast<DWORD>(full.size()), full.data(), nullptr);
  return length == 0 || length >= full.size() ? folder : text::utf16(full.data());
}

template <class Form>
std::optional<std::u16string> choose(Purpose purpose, const forms::FileDialog& dialog, HWND owner) {
  const auto filters = Form::converted(filterList(dialog));
  const auto folder = Form::converted(fullFolder(dialog.folder));
  const auto name = Form::converted(proposedName(dialog.name));
  const auto title = Form::converted(dialog.title);
  const auto extension = Form::converted(dialog.defaultExtension);
  std::array<typename Form::Char, 260> path{};
  name->copy(path.data(), path.size() - 1);

  typename Form::Request request{};
  request.lStructSize = kRequestSize;
  request.hwndOwner = owner;
  request.lpstrFilter = filters->c_str();
  request.nFilterIndex = 1;
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrInitialDir = folder->c_str();
  request.lpstrTitle = title->c_str();
  request.Flags = purpose == Purpose::Open ? kOpenFlags : kSaveFlags;
  if (!extension->empty()) request.lpstrDefExt = extension->c_str();
  const KeptFolder kept;
  const BOOL chosen = purpose == Purpose::Open ? Form::open(&request) : Form::save(&request);
  if (chosen == FALSE) return std::nullopt;
  return std::u16string(text::StripAtNull(Form::restored({path.data(), path.size()})));
}

}  // namespace

std::optional<std::u16string> chooseFile(Purpose purpose, const forms::FileDialog& dialog,
                                         HWND owner) {
  const bool fits = text::toAnsi(fullFolder(dialog.folder)) && text::toAnsi(dialog.name);
  return fits ? choose<InCodePage>(purpose, dialog, owner)
              : choose<InUtf16>(purpose, dialog, owner);
}

}  // namespace kvrnstep::windows
