#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include "text/codepage.h"

namespace kvrnstep::tests {

/// A folder of one test's own, gone with everything in it when the test ends.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      const auto name = "unit-" + std::to_string(random());
      path_ = (std::filesystem::temp_directory_path() / name).string();
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string native(const std::string& name) const { return path_ + "/" + name; }
  [[nodiscard]] std::u16string operator()(const std::string& name) const {
    return text::fromUtf8(native(name));
  }

  /// @param name in UTF-8
  [[nodiscard]] std::filesystem::path path(const std::string& name) const {
    return text::fromUtf8(native(name));
  }

  void put(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
  }
  [[nodiscard]] std::string get(const std::string& name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(path(name), std::ios::binary).rdbuf();
    return bytes.str();
  }

  /// Permission bits of a file.
  [[nodiscard]] unsigned mode(const std::string& name) const {
    return static_cast<unsigned>(std::filesystem::status(native(name)).permissions());
  }
  void setMode(const std::string& name, unsigned bits) const {
    std::filesystem::permissions(native(name), std::filesystem::perms(bits));
  }

  /// Every name in the folder, those that begin with a full stop included.
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      all.insert(text::toUtf8(entry.path().filename().u16string()));
    }
    return all;
  }

 private:
  std::string path_;
};

}  // namespace kvrnstep::tests
