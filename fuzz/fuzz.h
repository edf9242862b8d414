#pragma once

#include <cstdio>
#include <cstdlib>

namespace kvrnstep::fuzz {

/// Ends the program with a message where something that must hold does not, so that the input is
/// kept as a fault.
inline void check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace kvrnstep::fuzz
