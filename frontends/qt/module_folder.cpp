#include "module_folder.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace kvrnstep::qt {

std::string besideThisModule(const std::string& name) {
  Dl_info module{};
  if (dladdr(reinterpret_cast<const void*>(&besideThisModule), &module) == 0) return {};
  std::error_code failed;
  const auto path = std::filesystem::absolute(module.dli_fname, failed);
  return failed ? std::string() : (path.parent_path() / name).string();
}

void* functionBeside(const std::string& module, const char* name) {
  const std::string path = besideThisModule(module);
  void* library = path.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? nullptr : dlsym(library, name);
}

}  // namespace kvrnstep::qt
