// The command as a whole process, from its start to its end, against `seq`.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace {

/// Runs a program, its output thrown away; false when that failed.
bool run(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failed =
      posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  return failed == 0 && waitpid(child, &status, 0) == child && status == 0;
}

void process(benchmark::State& state, const std::vector<std::string>& words) {
  for (auto _ : state) {
    if (!run(words)) state.SkipWithError("the program failed");
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

}  // namespace
