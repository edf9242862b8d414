#include "file_names.h"

#include <filesystem>
#include <stdexcept>

#include "kvrnstep/list_options.hpp"
#include "kvrnstep/listwright.hpp"
#include "utf8.h"

namespace listwright {

namespace fs = std::filesystem;

namespace {

/// The name is UTF-8 on Windows only; elsewhere its bytes are the path.
fs::path pathOf(const std::string& name) {
  return std::u8string(name.begin(), name.end());
}

std::string nameOf(const fs::path& path) {
  const std::u8string name = path.u8string();
  return {name.begin(), name.end()};
}

std::string whyUnreadable(const std::string& name, const std::string& stepFolder) {
  std::error_code error;
  const bool file = fs::is_regular_file(pathOf(name), error);
  if (error == std::errc::no_such_file_or_directory && pathOf(name).is_relative()) {
    return error.message() + ", nor in " + stepFolder;
  }
  if (error) return error.message();
  if (!file) return "it is no file";
  const bool tooLarge = fs::file_size(pathOf(name), error) > KVRNSTEP_LARGEST_STEP_FILE;
  return tooLarge
             ? "it is larger than " + kvrnstep::Listwright::mebibytes(KVRNSTEP_LARGEST_STEP_FILE)
             : "no permission";
}

}  // namespace

std::string foundStepFile(const std::string& name, const std::string& stepFolder) {
  for (const fs::path& folder : {fs::path(), pathOf(stepFolder)}) {
    for (const char* extension : {"", ".step"}) {
      const fs::path file = folder / pathOf(name + extension);
      std::error_code ignored;
      if (fs::exists(file, ignored) && !fs::is_directory(file, ignored)) return nameOf(file);
    }
  }
  return name;
}

void requireUtf8(const std::string& name) {
  if (!hosts::isUtf8(name))
    throw std::runtime_error("cannot use " + name + ": its name is not UTF-8");
}

std::string folderOf(const std::string& name) {
  return nameOf(fs::absolute(pathOf(name)).parent_path());
}

std::string whyNoList(int result) {
  return result == KVRNSTEP_TOO_LONG ? kvrnstep::Listwright::tooLong()
                                     : "a number is too large, or memory is out";
}

std::string whyNoStepFile(int result, const std::string& name, const std::string& stepFolder) {
  if (result == KVRNSTEP_UNREADABLE) {
    return "cannot read " + name + ": " + whyUnreadable(name, stepFolder);
  }
  if (result == KVRNSTEP_TOO_LONG) return name + ": " + whyNoList(result);
  if (result != KVRNSTEP_FOREIGN) return whyNoList(result);
  return name + " is no step file; one begins with a number from 0 to " +
         std::to_string(kvrnstep::kListingTypes.size() - 1) +
         ", four texts and three numbers, with commas between them";
}

std::string whyUnwritable(const std::string& name) {
  std::error_code error;
  return fs::is_directory(pathOf(folderOf(name)), error) ? "no permission, no room or too large"
                                                         : "there is no such folder";
}

}  // namespace listwright
