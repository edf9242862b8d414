// The command as a whole process, from its start to its end, against `seq` and `nl`.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "folder.h"

namespace {

/// Runs a program, its output thrown away; false when that failed.
/// @param most becomes the most memory that it had, in KiB
bool run(const std::vector<std::string>& words, const std::string& input, std::int64_t& most) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failed =
      posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage used{};
  const bool done = failed == 0 && wait4(child, &status, 0, &used) == child && status == 0;
  most = std::max<std::int64_t>(most, used.ru_maxrss);
  return done;
}

void process(benchmark::State& state, const std::vector<std::string>& words) {
  std::int64_t most = 0;
  for (auto _ : state) {
    if (!run(words, "/dev/null", most)) state.SkipWithError("the program failed");
  }
}
BENCHMARK_CAPTURE(process, listwright,
                  {LISTWRIGHT, "--list", "--end", "99", "--prefix", "Step", "--suffix", ".",
                   "--space"})
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(process, seq, {"seq", "-f", "Step %g.", "99"})
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

#ifdef FIRST_DIALOG
/// Until the dialog has been painted and the process has ended.
void firstDialog(benchmark::State& state, const char* what) {
  const kvrnstep::bench::Folder folder;
  std::int64_t most = 0;
  if (!run({FIRST_DIALOG, folder.path(), "design"}, "/dev/null", most)) {
    state.SkipWithError("no display");
  }
  for (auto _ : state) {
    if (!run({FIRST_DIALOG, folder.path(), what}, "/dev/null", most)) {
      state.SkipWithError("the program failed");
    }
  }
}
BENCHMARK_CAPTURE(firstDialog, ours, "ours")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(firstDialog, bare, "bare")->UseRealTime()->Unit(benchmark::kMillisecond);
#endif

/// A file of so many lines, all items of one list whose numbers are wrong.
class ManyLines {
 public:
  explicit ManyLines(int count) : name_(std::filesystem::temp_directory_path() / "XXXXXX") {
    std::FILE* file = fdopen(mkstemp(name_.data()), "w");
    for (int i = 0; i < count; ++i) std::fprintf(file, "%d. the text of a line\n", i % 1000 + 7);
    std::fclose(file);
  }
  ManyLines(const ManyLines&) = delete;
  ManyLines& operator=(const ManyLines&) = delete;
  ~ManyLines() { std::filesystem::remove(name_); }

  [[nodiscard]] const std::string& name() const { return name_; }

 private:
  std::string name_;
};

void lines(benchmark::State& state, const std::vector<std::string>& words) {
  const ManyLines input(static_cast<int>(state.range(0)) * 1'000'000);
  std::int64_t most = 0;
  for (auto _ : state) {
    if (!run(words, input.name(), most)) state.SkipWithError("the program failed");
  }
  const auto text = static_cast<std::int64_t>(std::filesystem::file_size(input.name()) / 1024);
  state.counters["KiB_above_text"] = static_cast<double>(most - text);
}
void millions(benchmark::internal::Benchmark* bench) {
  bench->Arg(1)->Arg(10)->ArgName("millions")->UseRealTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(lines, number, {LISTWRIGHT, "--number"})->Apply(millions);
BENCHMARK_CAPTURE(lines, renumber, {LISTWRIGHT, "--renumber"})->Apply(millions);
BENCHMARK_CAPTURE(lines, nl, {"nl", "-ba"})->Apply(millions);

}  // namespace
