#include "user_folders.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace listwright {

namespace {

/// The folder below the one that a variable names, or below the usual one of the user's.
std::string userFolder(const char* variable, const std::string& usual) {
  const char* base = std::getenv(variable);
  if (base != nullptr && base[0] == '/') return std::string(base) + "/listwright";
  const char* home = std::getenv("HOME");
  return std::string(home == nullptr ? "." : home) + "/" + usual + "/listwright";
}

}  // namespace

std::string userStepFolder() {
  return userFolder("XDG_DATA_HOME", ".local/share");
}

std::string userSettingsFolder() {
  return userFolder("XDG_CONFIG_HOME", ".config");
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
