#include "user_folders.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace listwright {

std::string userFolder(const char* variable, const std::string& usual) {
  const char* base = std::getenv(variable);
  if (base != nullptr && base[0] == '/') return std::string(base) + "/listwright";
  const char* home = std::getenv("HOME");
  return std::string(home == nullptr ? "." : home) + "/" + usual + "/listwright";
}

void makeWritableFolder(const std::string& folder) {
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (!std::filesystem::is_directory(folder, failed)) {
    throw std::runtime_error("cannot make the folder " + folder);
  }
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    throw std::runtime_error("cannot write to the folder " + folder);
  }
}

}  // namespace listwright
