#include "platform/profile.h"

#include <algorithm>
#include <span>

#include "platform/files.h"

namespace kvrnstep::platform {

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

bool writePrivateProfileStrings(std::string_view section, const std::vector<ProfileKey>& keys,
                                const std::u16string& file) {
  const auto isRight = [&](const ProfileKey& key) { return isProfileName(section, key.name); };
  if (!std::ranges::all_of(keys, isRight)) return false;
  bool done = true;
  for (std::span rest(keys); !rest.empty();) {
    const auto some = rest.first(std::min(rest.size(), native::kKeysAtOnce));
    rest = rest.subspan(some.size());
    const ProfileKey& first = some.front();
    const auto bySystem = native::writeProfileString(section, first.name, first.value, file);
    const auto withSome = [&](std::optional<std::string_view> bytes) {
      return withProfileValues(std::string(bytes.value_or("")), section, some);
    };
    done = (bySystem ? *bySystem : changeFile(file, withSome)) && done;
  }
  return done;
}

}  // namespace kvrnstep::platform
