#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kvrnstep::platform {

/// The module that this code is part of, and its file. Null and empty when the system does not
/// tell.
HMODULE thisModule();
std::u16string modulePath();

/// The bytes of a resource of this module; empty where there is none.
std::string_view resource(int number, LPCWSTR type);

}  // namespace kvrnstep::platform
