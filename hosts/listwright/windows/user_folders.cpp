#include "user_folders.h"

#include <windows.h>
// After the other one.
#include <shlobj.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "utf8.h"

namespace listwright {

namespace {

std::string folderBelow(const KNOWNFOLDERID& base) {
  PWSTR given = nullptr;
  const HRESULT found = ::SHGetKnownFolderPath(base, 0, nullptr, &given);
  const std::unique_ptr<wchar_t, decltype(&::CoTaskMemFree)> path(given, ::CoTaskMemFree);
  if (FAILED(found)) throw std::runtime_error("the user has no folder for application data");
  return hosts::toUtf8(reinterpret_cast<const char16_t*>(path.get())) + "\\Listwright";
}

}  // namespace

std::string userStepFolder() {
  return folderBelow(FOLDERID_RoamingAppData);
}

std::string userSettingsFolder() {
  return folderBelow(FOLDERID_RoamingAppData);
}

void makeWritableFolder(const std::string& folder) {
  const std::filesystem::path path(hosts::fromUtf8(folder));
  std::error_code failed;
  std::filesystem::create_directories(path, failed);
  if (!std::filesystem::is_directory(path, failed)) {
    throw std::runtime_error("cannot make the folder " + folder);
  }
}

}  // namespace listwright
