#pragma once

#include <string>

#include "forms/driven_toolkit.h"

/// What a front-end module exports. Both functions return null where the calling thread can show no
/// window and say why in `problem`, in one line; the toolkit is for that thread, and lives as long
/// as the module is loaded.
extern "C" {
/// For people.
using KvrnstepFrontEnd = kvrnstep::forms::Toolkit*(std::string* problem);
/// For scripts; exported by the modules that can be driven.
using KvrnstepDrivenFrontEnd = kvrnstep::forms::DrivenToolkit*(std::string* problem);
}

namespace kvrnstep::forms {
inline constexpr const char* kFrontEndSymbol = "kvrnstepFrontEnd";
inline constexpr const char* kDrivenFrontEndSymbol = "kvrnstepDrivenFrontEnd";
}  // namespace kvrnstep::forms
