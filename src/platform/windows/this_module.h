#pragma once

#include <windows.h>

#include <string>

namespace kvrnstep::platform {

/// The module that this code is part of, and its file. Null and empty when the system does not
/// tell.
HMODULE thisModule();
std::u16string modulePath();

}  // namespace kvrnstep::platform
