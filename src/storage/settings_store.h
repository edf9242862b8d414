#pragma once

#include <string>
#include <string_view>

/// The settings of the plug-in, kept as keys of the settings file that the host names. Nothing is
/// cached: every call reads or writes the file.
namespace kvrnstep::modSecns {

/// The value of a key, up to its first NUL and cut to 254 UTF-16 units, though never within a
/// surrogate pair; `sDefault`, cut alike, when the key, the section or the file is missing or
/// cannot be read.
std::u16string ReadIniKey(std::u16string_view sSection, std::u16string_view sKey,
                          std::u16string_view sDefault, const std::u16string& sIniFile);

/// Stores a value, creating file, section and key as needed. Texts end at their first NUL. A
/// write that fails is lost and leaves the file as it was.
void WriteIniKey(std::u16string_view sSection, std::u16string_view sKey, std::u16string_view sValue,
                 const std::u16string& sIniFile);

}  // namespace kvrnstep::modSecns
