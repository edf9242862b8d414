#include "platform/profile.h"

#include "platform/files.h"

namespace kvrnstep::platform {

namespace {

/// What the file holds; an empty text if there is no file yet. Nothing for a file that cannot be
/// read, because a write would destroy it.
std::optional<std::string> bytesToChange(const std::u16string& file) {
  auto bytes = readFile(file);
  if (!bytes && !pathExists(file)) return std::string();
  return bytes;
}

}  // namespace

std::string getPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, const std::u16string& file) {
  if (auto value = native::profileString(section, key, defaultValue, file)) {
    return *std::move(value);
  }
  const auto bytes = readFile(file);
  const auto value = bytes ? profileValue(*bytes, section, key) : std::nullopt;
  const std::string_view found = value.value_or(defaultValue);
  return std::string(found.substr(0, found.find('\0')));
}

bool writePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::u16string& file) {
  if (!isProfileName(section, key)) return false;
  if (const auto done = native::writeProfileString(section, key, value, file)) return *done;
  const auto bytes = bytesToChange(file);
  if (!bytes) return false;
  const std::string changed = withProfileValue(*bytes, section, key, value);
  return changed == *bytes || replaceFile(file, changed);
}

}  // namespace kvrnstep::platform
