#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "generator/list_settings.h"

/// Step files: one list setup a file.
namespace kvrnstep::stepfiles {

/// A larger file is neither read nor written.
inline constexpr std::size_t kLargestStepFile = KVRNSTEP_LARGEST_STEP_FILE;

/// Marks the files of the step folder that hold a setup; letter case counts.
inline constexpr std::u16string_view kStepExtension = u".step";

/// The bytes of a step file: listing type, four texts, three numbers and the options, with commas
/// between them, and CR LF.
std::string formatStepRecord(const generator::ListSettings& settings);

/// The setup that the bytes hold: any number as listing type, four texts, three numbers and the
/// options; nothing if they do not begin like that. An option is 0 if it is missing or not a
/// number. A number that is too large or too small becomes the nearest possible one.
std::optional<generator::ListSettings> parseStepRecord(std::string_view bytes);

/// The setup with its numbers limited as the dialog does: 0 to 9 blank lines, steps 1 to 99, the
/// first one not behind the last.
generator::ListSettings withinRanges(generator::ListSettings settings);

/// The bytes of a step file. Nothing when it cannot be read or is too large.
std::optional<std::string> readStepFile(const std::u16string& path);

/// Writes a step file and replaces a file of that name. False when it cannot be written or would be
/// too large.
/// @param isNew writes nothing if that name is in use
bool writeStepFile(const std::u16string& path, const generator::ListSettings& settings,
                   bool isNew = false);

}  // namespace kvrnstep::stepfiles
