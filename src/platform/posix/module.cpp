#include "platform/module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <memory>

#include "platform/files.h"
#include "platform/posix/native_path.h"
#include "text/codepage.h"

namespace kvrnstep::platform {

namespace {

std::string lastProblem() {
  const char* problem = ::dlerror();
  return problem != nullptr ? problem : "unknown problem";
}

std::string findModuleFolder() {
  Dl_info module{};
  if (::dladdr(reinterpret_cast<const void*>(&findModuleFolder), &module) == 0) return {};
  const std::unique_ptr<char, decltype(&::free)> path(::realpath(module.dli_fname, nullptr),
                                                      ::free);
  if (!path) return {};
  return folderPart(path.get());
}

/// Found out while the module is being loaded: the system keeps the path as the host gave it,
/// and one that is relative means something else once the host changes its working folder.
const std::string folderAtLoad = findModuleFolder();

}  // namespace

std::u16string moduleFolder() {
  return withoutTrailingSeparator(text::fromBytes(folderAtLoad));
}

void* loadModule(const std::u16string& path, std::string& problem) {
  const std::string native = nativePath(path);
  if (native.empty() || native.front() != '/') {
    problem = "a module is loaded by its full path only";
    return nullptr;
  }
  void* module = ::dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) problem = lastProblem();
  return module;
}

void* symbolOf(void* module, const char* name) {
  return ::dlsym(module, name);
}

}  // namespace kvrnstep::platform
