#include "platform/profile.h"

#include <windows.h>

#include "platform/native_files.h"
#include "platform/windows/full_path.h"
#include "text/codepage.h"
#include "text/text.h"
#include "text/windows/ansi.h"

namespace kvrnstep::platform::native {

namespace {

/// Whether the system's functions keep the bytes. They convert them from the system's code page and
/// back, which changes some sequences in a code page with several bytes to a character.
bool survives(std::string_view bytes) {
  CPINFO page{};
  if (::GetCPInfo(CP_ACP, &page) == FALSE || page.MaxCharSize != 1) return false;
  return text::toAnsi(text::fromAnsi(bytes)) == bytes;
}

/// The file's full path, because the system's functions look for a plain name in the Windows
/// folder. Nothing if they can't be used: for a path, a key or a value that they can't hold, and
/// for a section with accents, which may be in the file in another encoding.
std::optional<std::string> pathForSystem(const std::u16string& file, std::string_view section,
                                         std::string_view key, std::string_view value) {
  if (pathOf(file).empty() || !text::isAscii(section)) return std::nullopt;
  if (!survives(key) || !survives(value)) return std::nullopt;
  auto path = text::toAnsi(fullPath(file));
  if (!path || path->empty() || path->size() >= MAX_PATH) return std::nullopt;
  return path;
}

}  // namespace

std::optional<std::string> profileString(std::string_view section, std::string_view key,
                                         std::string_view defaultValue,
                                         const std::u16string& file) {
  constexpr DWORD kLargestBuffer = 0x10000;
  const auto path = pathForSystem(file, section, key, {});
  if (!path) return std::nullopt;
  const std::string inSection(section);
  const std::string name(key);
  const std::string fallback(defaultValue);
  std::string buffer(0x100, '\0');
  for (;;) {
    const auto size = static_cast<DWORD>(buffer.size());
    const DWORD length = ::GetPrivateProfileStringA(
        inSection.c_str(), name.c_str(), fallback.c_str(), buffer.data(), size, path->c_str());
    if (length + 1 < size || size == kLargestBuffer) return buffer.substr(0, length);
    buffer.assign(2 * buffer.size(), '\0');
  }
}

std::optional<bool> writeProfileString(std::string_view section, std::string_view key,
                                       std::string_view value, const std::u16string& file) {
  const auto path = pathForSystem(file, section, key, value);
  if (!path) return std::nullopt;
  if (targetAt(pathOf(file)) == Target::kOther) return false;
  return ::WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                      std::string(firstLine(value)).c_str(),
                                      path->c_str()) != FALSE;
}

}  // namespace kvrnstep::platform::native
