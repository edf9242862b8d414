#pragma once

#include <string>

namespace listwright {

/// How a list is printed.
struct PrintFormat {
  bool crLf = false;   ///< lines end with CR LF instead of LF
  bool exact = false;  ///< no line end of its own behind the last line
};

/// Prints a list. A terminal gets control characters as signs that do nothing.
/// @throws std::runtime_error when it cannot be written
void print(const std::string& list, const PrintFormat& format);

/// Says in one line on standard error what is wrong.
void complain(const std::string& problem);

}  // namespace listwright
