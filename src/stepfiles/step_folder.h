#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvrnstep::stepfiles {

/// The step files of a folder, hidden and read-only ones too: their names without ".step", sorted
/// without regard to letter case. None when the folder cannot be read.
std::vector<std::u16string> stepFileEntries(const std::u16string& folder);

/// Where in the name of a step file its numbers and its options begin: "_1_4-IS+I"; npos if the
/// name does not end like that.
std::size_t placeOfCodes(std::u16string_view name);

/// The path of the file that an entry of that list stands for.
std::u16string pathOfEntry(const std::u16string& folder, const std::u16string& entry);

}  // namespace kvrnstep::stepfiles
