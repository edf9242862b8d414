#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "generator/list_settings.h"

/// Step files: one list setup a file.
namespace kvrnstep::stepfiles {

/// A larger file is not read. Texts have no limit, but nobody types or pastes that much.
inline constexpr std::size_t kLargestStepFile = std::size_t{256} * 1024 * 1024;

/// Marks the files of the step folder that hold a setup; letter case counts.
inline constexpr std::u16string_view kStepExtension = u".step";

/// The bytes of a step file: listing type, four texts, three numbers and the options, with commas
/// between them, and CR LF.
std::string formatStepRecord(const generator::ListSettings& settings);

/// The setup that the bytes hold. Missing fields are empty or 0; what is no number is 0, and a
/// number that does not fit is the nearest one that does. Any number is taken as listing type.
generator::ListSettings parseStepRecord(std::string_view bytes);

/// Whether the bytes begin as a step file does: an existing listing type, four texts, three
/// numbers.
bool isStepRecord(std::string_view bytes);

/// The setup with its numbers limited as the dialog does: 0 to 9 blank lines, steps 1 to 99, the
/// first one not behind the last.
generator::ListSettings withinRanges(generator::ListSettings settings);

/// Reads a step file. Nothing when it cannot be read or is too large.
std::optional<generator::ListSettings> readStepFile(const std::u16string& path);

/// Writes a step file in place of what the path names. False when it cannot be written.
bool writeStepFile(const std::u16string& path, const generator::ListSettings& settings);

}  // namespace kvrnstep::stepfiles
