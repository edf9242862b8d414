#pragma once

#include <string>

namespace kvrnstep::windows {

/// Prints a text on the default printer as one document, from the top of the first page, in the
/// printer's own font. False: there is no printer, or it refused.
bool printText(const std::u16string& text);

}  // namespace kvrnstep::windows
