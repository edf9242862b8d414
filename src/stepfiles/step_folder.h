#pragma once

#include <string>
#include <vector>

namespace kvrnstep::stepfiles {

/// The step files of a folder as the user reads them: their names without ".step", sorted without
/// regard to letter case, hidden and read-only ones too. None when the folder cannot be read.
std::vector<std::u16string> stepFileEntries(const std::u16string& folder);

/// The path that an entry of the list stands for.
std::u16string pathOfEntry(const std::u16string& folder, const std::u16string& entry);

}  // namespace kvrnstep::stepfiles
