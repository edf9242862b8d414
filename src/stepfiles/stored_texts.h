#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The texts that the user has stored for beginnings and endings, in a file for each.
namespace kvrnstep::stepfiles {

inline constexpr std::size_t kStoredTexts = 15;

using StoredTexts = std::array<std::u16string, kStoredTexts>;

/// The file in the step folder of the beginnings or the endings; without folder.
constexpr std::u16string_view storedTextsFile(bool endings) {
  return endings ? u"ending_step.dat" : u"beginning_step.dat";
}

/// Each text as a record of its own: in double quotes, those within it encoded, and CR LF.
std::string formatStoredTexts(const StoredTexts& texts);

/// The texts in the bytes of such a file; further records are not read, missing ones are empty.
StoredTexts parseStoredTexts(std::string_view bytes);

/// Reads the file, which is created empty when it is missing. Nothing when it cannot be read.
std::optional<StoredTexts> readStoredTexts(const std::u16string& path);

/// Replaces the file. False when it cannot be written; it is then unchanged.
bool writeStoredTexts(const std::u16string& path, const StoredTexts& texts);

}  // namespace kvrnstep::stepfiles
