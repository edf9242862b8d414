#pragma once

#include <filesystem>
#include <string>

namespace hosts {

/// Where the plug-in lies beside the running program: "../lib" seen from the program's folder.
inline std::string pluginBesideProgram() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return program.parent_path().parent_path() / LISTWRIGHT_LIBDIR / "libkvrnstep.so";
}

}  // namespace hosts
