#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <string>

namespace kvrnstep::tests {

/// A folder of one test's own, gone with everything in it when the test ends. Names are UTF-8.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::random_device random;
    do {
      path_ = parent / ("kvrnstep-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::filesystem::path path(const std::string& name) const {
    return path_ / std::u8string(name.begin(), name.end());
  }
  [[nodiscard]] std::string native(const std::string& name) const { return path(name).string(); }
  [[nodiscard]] std::u16string operator()(const std::string& name) const {
    return path(name).u16string();
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
    return static_cast<unsigned>(std::filesystem::status(path(name)).permissions());
  }
  void setMode(const std::string& name, unsigned bits) const {
    std::filesystem::permissions(path(name), std::filesystem::perms(bits));
  }

  /// Every name in the folder, those that begin with a full stop included.
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      const std::u8string name = entry.path().filename().u8string();
      all.insert({name.begin(), name.end()});
    }
    return all;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace kvrnstep::tests
