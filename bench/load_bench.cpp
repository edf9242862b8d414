// Loading the plug-in, against loading a library that does nothing. Each load takes a fresh copy,
// since a library that was loaded once may stay, and all copies are kept to the end, since the
// loader knows a library by its inode.

#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "folder.h"

namespace {

namespace fs = std::filesystem;

class Copies {
 public:
  fs::path copyOf(const char* library) {
    fs::path copy = folder_(std::to_string(count_++) + ".so");
    fs::copy_file(library, copy);
    return copy;
  }

 private:
  const kvrnstep::bench::Folder folder_;
  int count_ = 0;
};

void load(benchmark::State& state, const char* library) {
  static Copies copies;
  for (auto _ : state) {
    state.PauseTiming();
    const fs::path copy = copies.copyOf(library);
    state.ResumeTiming();
    void* loaded = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    benchmark::DoNotOptimize(loaded);
    if (loaded == nullptr) state.SkipWithError(dlerror());
  }
}

BENCHMARK_CAPTURE(load, emptyLibrary, EMPTY_LIBRARY)->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(load, plugin, PLUGIN_LIBRARY)->Iterations(50)->Unit(benchmark::kMicrosecond);

}  // namespace
