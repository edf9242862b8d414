#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// The linker puts it where the module begins.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace kvrnstep::platform {

/// The module that this code is part of, and its file, whose path is empty when the system does not
/// tell.
inline HMODULE thisModule() {
  return reinterpret_cast<HMODULE>(&__ImageBase);
}
std::u16string modulePath();

/// The bytes of a resource of this module; empty where there is none.
std::string_view resource(int number, LPCWSTR type);

}  // namespace kvrnstep::platform
