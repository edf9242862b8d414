#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The plug-in as a loaded module, and the modules that it loads in turn.
namespace kvrnstep::platform {

/// Full path of the folder that this plug-in was loaded from, links resolved. Only the root of a
/// drive or of the file system ends in a separator. Empty when the system does not tell.
std::u16string moduleFolder();

/// Major and minor version and revision of this plug-in: "2.0.0".
std::u16string moduleVersion();

#ifdef _WIN32
inline constexpr const char16_t* kModuleExtension = u".dll";
#else
inline constexpr const char16_t* kModuleExtension = u".so";
#endif

/// The plug-in's icon of that number, as the bytes of an icon file, which stay as long as the
/// plug-in is loaded. Nothing if there is none.
std::optional<std::string_view> iconFile(int number);

/// Keeps this module loaded until it is let go with the result, even if the host unloads it. Only
/// Windows has hosts that do so while a call runs.
void* keepModule();
void letModuleGo(void* kept);

/// Loads a module until the process ends.
/// @param path full path; any other one is refused, because the system would search for it
/// @param problem set to the reason when the module cannot be loaded
/// @return a handle for `symbolOf`, or null
void* loadModule(const std::u16string& path, std::string& problem);

/// The address of what a loaded module exports under a name, or null.
void* symbolOf(void* module, const char* name);

}  // namespace kvrnstep::platform
