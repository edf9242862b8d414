#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace kvrnstep::bench {

/// A folder of its own, gone with all that is in it when the benchmark ends.
class Folder {
 public:
  Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string operator()(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace kvrnstep::bench
