#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// The linker places it at the beginning of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace kvrnstep::platform {

/// The module that this code is part of …
inline HMODULE thisModule() {
  return reinterpret_cast<HMODULE>(&__ImageBase);
}
/// … and its file; empty when the system does not tell.
std::u16string modulePath();

/// The bytes of a resource of this module; empty where there is none.
std::string_view resource(int number, LPCWSTR type);

}  // namespace kvrnstep::platform
