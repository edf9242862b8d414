// Filling the list of step files, against a directory loop that copies the names.

#include <benchmark/benchmark.h>
#include <dirent.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "in_dialog.h"
#include "stepfiles/step_folder.h"
#include "text/codepage.h"

namespace {

namespace fs = std::filesystem;

/// 10,000 step files, made once and gone at the end.
class FullFolder {
 public:
  FullFolder() {
    fs::create_directories(path_);
    for (int i = 0; i < 10'000; ++i) {
      const auto name = "Numb_Tasks_" + std::to_string(i * 7919 % 10'000) + "_0_1_5-IS+I.step";
      std::ofstream(path_ / name) << '\n';
    }
  }
  ~FullFolder() { fs::remove_all(path_); }
  FullFolder(const FullFolder&) = delete;
  FullFolder& operator=(const FullFolder&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_ = fs::temp_directory_path() / "listwright-bench-steps";
};

const fs::path& folderOfStepFiles() {
  static const FullFolder kFolder;
  return kFolder.path();
}

void directoryLoop(benchmark::State& state) {
  const auto& folder = folderOfStepFiles();
  for (auto _ : state) {
    std::vector<std::string> names;
    DIR* opened = opendir(folder.c_str());
    while (const dirent* entry = readdir(opened)) names.emplace_back(&entry->d_name[0]);
    closedir(opened);
    benchmark::DoNotOptimize(names);
  }
}
BENCHMARK(directoryLoop)->Unit(benchmark::kMicrosecond);

void stepFileList(benchmark::State& state) {
  const auto folder = kvrnstep::text::fromBytes(folderOfStepFiles().string());
  kvrnstep::plugin::HostContext host;
  kvrnstep::bench::inDialog(host, [&](const kvrnstep::dialogs::frmListwright& dialog) {
    auto& list = *static_cast<kvrnstep::forms::ListBox*>(dialog.find("lstStepf", -1));
    for (auto _ : state) {
      list.Clear();
      for (auto& entry : kvrnstep::stepfiles::stepFileEntries(folder)) {
        list.AddItem(std::move(entry));
      }
    }
  });
}
BENCHMARK(stepFileList)->Unit(benchmark::kMicrosecond);

}  // namespace
