#pragma once

#include <string>

/// The plug-in as a loaded module, and the modules that it loads in turn.
namespace kvrnstep::platform {

/// Full path of the folder that this plug-in was loaded from, links resolved, as the system writes
/// it: only that of a drive or of the whole file system ends in a separator. Empty when the system
/// does not tell.
std::u16string moduleFolder();

/// Major and minor version and revision of this plug-in: "2.0.0".
std::u16string moduleVersion();

#ifdef _WIN32
inline constexpr const char16_t* kModuleExtension = u".dll";
#else
inline constexpr const char16_t* kModuleExtension = u".so";
#endif

/// Loads a module for the rest of the process's life.
/// @param path full path; any other is refused, since the system would search for it
/// @param problem set to the reason when the module cannot be loaded
/// @return a handle for `symbolOf`, or null
void* loadModule(const std::u16string& path, std::string& problem);

/// The address of what a loaded module exports under a name, or null.
void* symbolOf(void* module, const char* name);

}  // namespace kvrnstep::platform
