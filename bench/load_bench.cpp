// Loading the plug-in, against loading a library that does nothing. Each load takes a fresh copy,
// since a library that was loaded once may stay.

#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

void load(benchmark::State& state, const char* library) {
  const fs::path folder = fs::temp_directory_path() / "listwright-bench";
  fs::create_directories(folder);
  int copies = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const fs::path copy = folder / (std::to_string(copies++) + ".so");
    fs::copy_file(library, copy, fs::copy_options::overwrite_existing);
    state.ResumeTiming();
    void* loaded = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    benchmark::DoNotOptimize(loaded);
    if (loaded == nullptr) state.SkipWithError(dlerror());
  }
  fs::remove_all(folder);
}

BENCHMARK_CAPTURE(load, emptyLibrary, EMPTY_LIBRARY)->Iterations(200);
BENCHMARK_CAPTURE(load, plugin, PLUGIN_LIBRARY)->Iterations(200);

}  // namespace
