#include "platform/profile.h"

#include <windows.h>

#include "platform/files.h"
#include "platform/windows/native_path.h"
#include "text/codepage.h"
#include "text/text.h"
#include "text/windows/ansi.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

namespace {

/// The file's full path for the system's profile functions, which look for a name alone in the
/// system's folder. Nothing for a path that they cannot be given.
std::optional<std::string> profilePath(const std::u16string& file) {
  if (file.empty() || file.find(u'\0') != std::u16string::npos) return std::nullopt;
  auto path = text::toAnsi(fullPath(file));
  if (!path || path->empty() || path->size() >= MAX_PATH) return std::nullopt;
  return path;
}

/// Whether the bytes pass through the system's functions unharmed. These take all bytes for text
/// in the system's code page; with several bytes to a character not all sequences are.
bool survives(std::string_view bytes) {
  CPINFO page{};
  if (::GetCPInfo(CP_ACP, &page) == FALSE || page.MaxCharSize != 1) return false;
  return text::toAnsi(text::fromAnsi(bytes)) == bytes;
}

/// A name with accents may be in the file in another encoding, of which the system's functions
/// know nothing.
bool isForSystem(std::string_view section, std::string_view key) {
  return text::isAscii(section) && survives(key);
}

bool isReadOnly(const std::u16string& file) {
  const DWORD attributes = ::GetFileAttributesW(text::wide(nativePath(file)));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

std::string readBySystem(const std::string& section, const std::string& key,
                         const std::string& defaultValue, const std::string& path) {
  constexpr DWORD kLargestBuffer = 0x10000;
  std::string buffer(0x100, '\0');
  for (;;) {
    const auto size = static_cast<DWORD>(buffer.size());
    const DWORD length = ::GetPrivateProfileStringA(
        section.c_str(), key.c_str(), defaultValue.c_str(), buffer.data(), size, path.c_str());
    if (length + 1 < size || size == kLargestBuffer) return buffer.substr(0, length);
    buffer.assign(2 * buffer.size(), '\0');
  }
}

std::string readByRules(std::string_view section, std::string_view key,
                        std::string_view defaultValue, const std::u16string& file) {
  const auto bytes = readFile(file);
  const auto value = bytes ? profileValue(*bytes, section, key) : std::nullopt;
  const std::string_view found = value.value_or(defaultValue);
  return std::string(found.substr(0, found.find('\0')));
}

bool writeByRules(std::string_view section, std::string_view key, std::string_view value,
                  const std::u16string& file) {
  auto bytes = readFile(file);
  if (!bytes && !pathExists(file)) bytes.emplace();
  if (!bytes) return false;
  const std::string changed = withProfileValue(*bytes, section, key, value);
  return changed == *bytes || overwriteFile(file, changed);
}

}  // namespace

std::string getPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, const std::u16string& file) {
  const auto path = profilePath(file);
  if (!path || !isForSystem(section, key)) {
    return readByRules(section, key, defaultValue, file);
  }
  return readBySystem(std::string(section), std::string(key), std::string(defaultValue), *path);
}

bool writePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::u16string& file) {
  if (!isProfileName(section, key) || isReadOnly(file)) return false;
  const auto path = profilePath(file);
  if (!path || !isForSystem(section, key) || !survives(value)) {
    return writeByRules(section, key, value, file);
  }
  return ::WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                      std::string(value).c_str(), path->c_str()) != FALSE;
}

}  // namespace kvrnstep::platform
