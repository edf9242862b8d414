#pragma once

#include "options.h"

namespace listwright {

/// Changes the labels of the lines of standard input as the options say, and prints the text.
/// @return false, and a message is out, where a line cannot have its label
/// @throws std::runtime_error when something cannot be read or written
bool changeLines(const Options& options);

}  // namespace listwright
