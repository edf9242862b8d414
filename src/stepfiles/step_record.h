#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "generator/list_settings.h"

/// Step files: one list setup a file.
namespace kvrnstep::stepfiles {

/// A larger file is none of ours and is not read. The texts of a setup have no limit, but somebody
/// has to have typed or pasted them.
inline constexpr std::size_t kLargestStepFile = std::size_t{256} * 1024 * 1024;

/// Marks the files of the step folder that hold a setup; letter case counts.
inline constexpr std::u16string_view kStepExtension = u".step";

/// The bytes of a step file: listing type, four texts, three numbers and the options, with commas
/// between them, and CR LF.
std::string formatStepRecord(const generator::ListSettings& settings);

/// The setup that the bytes hold. Fields that are not there are empty and 0, and so is a number
/// that is none; one that is too large or too small is the nearest that a field can hold. The
/// listing type is taken as it stands, be there such a type or not.
generator::ListSettings parseStepRecord(std::string_view bytes);

/// Whether the bytes begin as a step file does: a listing type that there is, four texts, three
/// numbers.
bool isStepRecord(std::string_view bytes);

/// The setup with its numbers as the dialog shows them: 0 to 9 blank lines, steps 1 to 99, none
/// before the first.
generator::ListSettings withinRanges(generator::ListSettings settings);

/// Reads a step file. Nothing when it cannot be read or is too large.
std::optional<generator::ListSettings> readStepFile(const std::u16string& path);

/// Writes a step file in place of what the path names. False when it cannot be written.
bool writeStepFile(const std::u16string& path, const generator::ListSettings& settings);

}  // namespace kvrnstep::stepfiles
