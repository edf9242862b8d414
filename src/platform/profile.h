#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The system's profile functions, for files of the layout
///
///     [Section]
///     Key=Value
///
/// All text is 8-bit. The case of A to Z does not matter in names, and names of sections are equal
/// in every encoding that `fromBytes` reads; of equal names the first counts. Lines end at CR LF,
/// LF or CR. Blanks and tabs around keys and values are dropped, and so is one pair of double or
/// single quotes around a value. A line that begins with ";" is a comment. Keys before the first
/// section are never found.
namespace kvrnstep::platform {

/// Reads a key as GetPrivateProfileStringA does with as large a buffer as the value needs.
/// @return the value up to its first NUL; the default when the key, the section or the file is
///         not there or cannot be read
std::string getPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, const std::u16string& file);

struct ProfileKey {
  std::string name;
  std::string value;
};

/// Writes keys as WritePrivateProfileStringA does, one after the other. Where the system has no
/// such function the file is changed once for all of them, and no other call of this function
/// changes it meanwhile.
/// @return false when one could not be written or `isProfileName` says no to any
bool writePrivateProfileStrings(std::string_view section, const std::vector<ProfileKey>& keys,
                                const std::u16string& file);

/// The value of a key in the bytes of a file, NULs included; a part of `bytes`. Nothing when the
/// section or the key is missing.
std::optional<std::string_view> profileValue(std::string_view bytes, std::string_view section,
                                             std::string_view key);

/// The bytes of a file with keys set. An existing key changes behind its "="; a new one follows
/// the last line of its section that is not blank; a new section goes to the end of the file.
/// Every other byte stays, and a last line without line end stays without. Of a value with line
/// breaks only the first line is written, because the others would become lines of the file. Names
/// that `isProfileName` refuses change nothing.
std::string withProfileValues(std::string bytes, std::string_view section,
                              std::span<const ProfileKey> keys);

/// Whether a section and a key of these names can be read back: neither holds a line break, and
/// the key holds no "=" and begins with neither "[" nor ";".
bool isProfileName(std::string_view section, std::string_view key);

/// The part of a value that is written: up to its first line break.
inline std::string_view firstLine(std::string_view value) {
  return value.substr(0, value.find_first_of("\r\n"));
}

/// The system's own functions. Nothing if there are none, if they cannot take this path, or if they
/// would change these texts. Then the rules above are used.
namespace native {

#ifdef _WIN32
inline constexpr std::size_t kKeysAtOnce = 1;
std::optional<std::string> profileString(std::string_view section, std::string_view key,
                                         std::string_view defaultValue, const std::u16string& file);
std::optional<bool> writeProfileString(std::string_view section, std::string_view key,
                                       std::string_view value, const std::u16string& file);
#else
inline constexpr auto kKeysAtOnce = static_cast<std::size_t>(-1);
inline std::optional<std::string> profileString(auto&&... /*all*/) {
  return std::nullopt;
}
inline std::optional<bool> writeProfileString(auto&&... /*all*/) {
  return std::nullopt;
}
#endif

}  // namespace native

}  // namespace kvrnstep::platform
