#pragma once

#include <filesystem>
#include <string>

namespace hosts {

/// Where the plug-in lies, seen from the running program's folder: "../lib" in a build tree,
/// "../lib/listwright" where it is installed.
inline std::string pluginBesideProgram() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  const auto libraries = program.parent_path().parent_path() / "lib";
  auto built = libraries / "libkvrnstep.so.2";
  if (std::filesystem::exists(built, failed)) return built;
  return libraries / "listwright" / "libkvrnstep.so.2";
}

}  // namespace hosts
