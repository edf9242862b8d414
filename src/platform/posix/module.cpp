#include "platform/module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <memory>

#include "platform/native_files.h"
#include "text/paths.h"
#include "text/text.h"

namespace kvrnstep::platform {

namespace {

/// The path of this module as the host gave it; null when the system does not tell.
const char* pathAsGiven() {
  Dl_info module{};
  const bool known = ::dladdr(reinterpret_cast<const void*>(&pathAsGiven), &module) != 0;
  return known ? module.dli_fname : nullptr;
}

std::string resolvedFolder(const char* path) {
  const std::unique_ptr<char, decltype(&::free)> resolved(::realpath(path, nullptr), ::free);
  return resolved ? native::folderPart(resolved.get()) : std::string();
}

/// A relative path is resolved while the module is loaded, because the host may change its working
/// folder later. An absolute one is resolved when it is needed, so that loading costs little.
const std::string folderOfRelativePath = [] {
  const char* path = pathAsGiven();
  return path != nullptr && *path != '/' ? resolvedFolder(path) : std::string();
}();

}  // namespace

std::u16string moduleFolder() {
  const char* path = pathAsGiven();
  if (path == nullptr) return {};
  const std::string folder = *path == '/' ? resolvedFolder(path) : folderOfRelativePath;
  if (folder == "/") return u"/";
  return text::withoutTrailingSeparator(native::textOf(folder));
}

std::u16string moduleVersion() {
  return text::fromAscii(LISTWRIGHT_VERSION);
}

void* keepModule() {
  return nullptr;
}

void letModuleGo(void* /*kept*/) {}

void* loadModule(const std::u16string& path, std::string& problem) {
  const std::string native = native::pathOf(path);
  if (native.empty() || native.front() != '/') {
    problem = "a module is loaded by its full path only";
    return nullptr;
  }
  void* module = ::dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) problem = ::dlerror();
  return module;
}

void* symbolOf(void* module, const char* name) {
  return ::dlsym(module, name);
}

}  // namespace kvrnstep::platform
