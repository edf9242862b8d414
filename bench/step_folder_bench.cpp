// Filling the list of step files, against a directory loop that copies and sorts the names.

#include <benchmark/benchmark.h>
#include <dirent.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "in_dialog.h"
#include "stepfiles/step_folder.h"
#include "text/codepage.h"

namespace {

/// 10,000 step files, made once and gone at the end.
class FullFolder : public kvrnstep::bench::Folder {
 public:
  FullFolder() {
    for (int i = 0; i < 10'000; ++i) {
      std::ofstream((*this)("Numb_Tasks_" + std::to_string(i * 7919 % 10'000) + "_0_1_5-IS+I.step"))
          << '\n';
    }
  }
};

const std::string& folderOfStepFiles() {
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
    std::sort(names.begin(), names.end());
    benchmark::DoNotOptimize(names);
  }
}
BENCHMARK(directoryLoop)->Unit(benchmark::kMicrosecond);

void stepFileList(benchmark::State& state) {
  const auto folder = kvrnstep::text::fromBytes(folderOfStepFiles());
  kvrnstep::bench::inDialog([&](const kvrnstep::dialogs::frmListwright& dialog) {
    auto& list = *static_cast<kvrnstep::forms::ListBox*>(dialog.find("lstStepf", -1));
    for (auto _ : state) {
      list.setItems(kvrnstep::stepfiles::stepFileEntries(folder));
    }
  });
}
BENCHMARK(stepFileList)->Unit(benchmark::kMicrosecond);

}  // namespace
