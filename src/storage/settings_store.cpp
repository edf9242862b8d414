#include "storage/settings_store.h"

#include "platform/profile.h"
#include "text/characters.h"
#include "text/codepage.h"
#include "text/text.h"

namespace kvrnstep::modSecns {

namespace {

/// The 8-bit text that the profile functions get: one that ends at its first NUL.
std::string argument(std::u16string_view text) {
  return text::toBytes(text::StripAtNull(text));
}

std::u16string cut(std::u16string text) {
  constexpr std::size_t kLongestValue = 254;
  if (text.size() <= kLongestValue) return text;
  const auto last = std::u16string_view(text).substr(kLongestValue - 1, 2);
  text.resize(text::isSurrogatePair(last) ? kLongestValue - 1 : kLongestValue);
  return text;
}

}  // namespace

std::u16string ReadIniKey(std::u16string_view sSection, std::u16string_view sKey,
                          std::u16string_view sDefault, const std::u16string& sIniFile) {
  // Cut after the conversion, which would otherwise see half a character.
  return cut(text::fromBytes(platform::getPrivateProfileString(argument(sSection), argument(sKey),
                                                               argument(sDefault), sIniFile)));
}

void WriteIniKey(std::u16string_view sSection, std::u16string_view sKey, std::u16string_view sValue,
                 const std::u16string& sIniFile) {
  WriteIniKeys(sSection, {{std::u16string(sKey), std::u16string(sValue)}}, sIniFile);
}

void WriteIniKeys(std::u16string_view sSection, const IniKeys& keys,
                  const std::u16string& sIniFile) {
  std::vector<platform::ProfileKey> bytes;
  for (const auto& [key, value] : keys) bytes.push_back({argument(key), argument(value)});
  platform::writePrivateProfileStrings(argument(sSection), bytes, sIniFile);
}

}  // namespace kvrnstep::modSecns
