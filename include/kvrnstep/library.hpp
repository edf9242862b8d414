#pragma once

// Loading the plug-in's library by its path, on every system.

#include <stdexcept>
#include <string>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace kvrnstep {

#ifdef _WIN32
namespace detail {
inline std::wstring wide(const std::string& utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring text(utf8.size(), L'\0');
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), size)));
  return text;
}
}  // namespace detail
#endif

/// Loads a library, on Windows with what it needs from its own folder.
/// @param path full path, in the system's encoding, on Windows in UTF-8
/// @throws std::runtime_error with the reason
inline void* openLibrary(const std::string& path) {
#ifdef _WIN32
  void* library =
      LoadLibraryExW(detail::wide(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (library != nullptr) return library;
  throw std::runtime_error("cannot load " + path + " (error " + std::to_string(GetLastError()) +
                           ")");
#else
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return library;
#endif
}

/// What a library exports under a name, or null.
inline void* symbolIn(void* library, const char* name) {
#ifdef _WIN32
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
#else
  return dlsym(library, name);
#endif
}

}  // namespace kvrnstep
