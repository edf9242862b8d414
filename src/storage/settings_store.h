#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The settings of the plug-in, kept as keys of the settings file that the host names. Nothing is
/// cached: every call reads or writes the file.
namespace kvrnstep::modSecns {

/// The value of a key, up to its first NUL and cut to 254 UTF-16 units, though never within a
/// surrogate pair; `sDefault`, cut alike, when the key, the section or the file is missing or
/// cannot be read.
std::u16string ReadIniKey(std::u16string_view sSection, std::u16string_view sKey,
                          std::u16string_view sDefault, const std::u16string& sIniFile);

/// Keys and their values.
using IniKeys = std::vector<std::pair<std::u16string, std::u16string>>;

/// Stores values, creating file, section and keys as needed, all in one write where that is
/// possible, so that other dialogs and hosts never find only some of them. Texts end at their first
/// NUL, values at their first line break. A write that fails is lost and leaves the file as it was.
void WriteIniKeys(std::u16string_view sSection, const IniKeys& keys,
                  const std::u16string& sIniFile);
void WriteIniKey(std::u16string_view sSection, std::u16string_view sKey, std::u16string_view sValue,
                 const std::u16string& sIniFile);

}  // namespace kvrnstep::modSecns
