#pragma once

#include <string>

#include "forms/toolkit.h"

/// What a front-end module exports: a toolkit for the calling thread, which lives as long as the
/// module is loaded. Null where that thread can show no window; `problem` then says why, in one
/// line.
extern "C" using KvrnstepFrontEnd = kvrnstep::forms::Toolkit * (std::string * problem);

namespace kvrnstep::forms {
inline constexpr const char* kFrontEndSymbol = "kvrnstepFrontEnd";
}  // namespace kvrnstep::forms
