#include "platform/module.h"

#include <array>
#include <cstring>

#include "platform/native_files.h"
#include "platform/windows/this_module.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/text.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

/// The beginning of a VERSIONINFO resource.
struct VersionResource {
  WORD size;
  WORD numbersSize;
  WORD type;
  std::array<wchar_t, sizeof("VS_VERSION_INFO")> key;
  VS_FIXEDFILEINFO numbers;
};

DWORD WINAPI letGo(void* kept) {
  constexpr DWORD kPause = 250;  // milliseconds
  ::Sleep(kPause);
  ::FreeLibraryAndExitThread(static_cast<HMODULE>(kept), 0);
}

}  // namespace

std::string_view resource(int number, LPCWSTR type) {
  const HRSRC found = ::FindResourceW(thisModule(), MAKEINTRESOURCEW(number), type);
  const HGLOBAL loaded = found != nullptr ? ::LoadResource(thisModule(), found) : nullptr;
  if (loaded == nullptr) return {};
  return {static_cast<const char*>(::LockResource(loaded)), ::SizeofResource(thisModule(), found)};
}

std::u16string modulePath() {
  constexpr DWORD kLongestPath = 0x8000;
  std::u16string path(kLongestPath, u'\0');
  path.resize(::GetModuleFileNameW(thisModule(), text::wide(path.data()), kLongestPath));
  return path;
}

std::u16string moduleFolder() {
  const std::u16string folder = native::folderPart(modulePath());
  return folder.ends_with(u":\\") ? folder : text::withoutTrailingSeparator(folder);
}

std::u16string moduleVersion() {
  const std::string_view bytes = resource(VS_VERSION_INFO, RT_VERSION);
  VersionResource version{};
  if (bytes.size() < sizeof(version)) return {};
  std::memcpy(&version, bytes.data(), sizeof(version));
  const VS_FIXEDFILEINFO& numbers = version.numbers;
  return text::decimal(HIWORD(numbers.dwFileVersionMS)) + u'.' +
         text::decimal(LOWORD(numbers.dwFileVersionMS)) + u'.' +
         text::decimal(LOWORD(numbers.dwFileVersionLS));
}

void* keepModule() {
  HMODULE kept = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(thisModule()), &kept);
  return kept;
}

/// It may be the last reference, and the caller still runs instructions of this module. So another
/// thread waits far longer than these take, and then gives up the reference as it ends.
void letModuleGo(void* kept) {
  if (kept == nullptr) return;
  const HANDLE thread = ::CreateThread(nullptr, 0, letGo, kept, 0, nullptr);
  if (thread != nullptr) ::CloseHandle(thread);
}

void* loadModule(const std::u16string& path, std::string& problem) {
  // The system would search for anything but a full path.
  const bool full = path.find(u':') == 1 || path.starts_with(u"\\\\");
  HMODULE module = full ? ::LoadLibraryExW(text::wide(path.c_str()), nullptr, 0) : nullptr;
  if (module == nullptr) problem = "cannot load " + text::toAscii(path);
  return module;
}

void* symbolOf(void* module, const char* name) {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(module), name));
}

}  // namespace kvrnstep::platform
