#include "program.h"

#include <unistd.h>

#include <filesystem>

namespace hosts {

Arguments::Arguments(int argc, char** argv) : texts_(argv, argv + argc) {
  for (const std::string& text : texts_) pointers_.push_back(text.c_str());
}

std::string pluginBesideProgram() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  const auto libraries = program.parent_path().parent_path() / "lib";
  auto built = libraries / "libkvrnstep.so.2";
  if (std::filesystem::exists(built, failed)) return built;
  return libraries / "listwright" / "libkvrnstep.so.2";
}

void prepareOutput() {}

bool outputIsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

}  // namespace hosts
