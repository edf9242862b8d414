// Sorting the longest list, against the standard library on the same strings.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/list_sort.h"
#include "storage/list_file.h"

namespace kvrnstep {
namespace {

constexpr int kEntries = static_cast<int>(storage::kMostListLines);

using Items = std::vector<std::u16string>;
using Maker = int (*)(int);

constexpr std::array<std::pair<const char*, Maker>, 5> kKinds{{
    {"random",
     [](int i) { return static_cast<int>(std::minstd_rand(unsigned(i) + 1)() % 1000003); }},
    {"sorted", [](int i) { return i; }},
    {"reversed", [](int i) { return kEntries - i; }},
    {"equal", [](int) { return 7; }},
    {"two values",
     [](int i) { return static_cast<int>(std::minstd_rand(unsigned(i) + 1)() >> 9 & 1); }},
}};

Items items(Maker make) {
  Items result;
  for (int i = 0; i < kEntries; ++i) {
    const std::string text = "Prefix number " + std::to_string(10'000'000 + make(i));
    result.emplace_back(text.begin(), text.end());
  }
  return result;
}

template <class Sort>
void sortEach(benchmark::State& state, Sort sort) {
  const auto& [name, make] = kKinds.at(static_cast<std::size_t>(state.range(0)));
  const Items unsorted = items(make);
  for (auto _ : state) {
    state.PauseTiming();
    Items sorted = unsorted;
    state.ResumeTiming();
    sort(sorted);
    benchmark::DoNotOptimize(sorted.data());
    state.PauseTiming();
    sorted.clear();
    state.ResumeTiming();
  }
  state.SetLabel(name);
}

void sortList(benchmark::State& state) {
  sortEach(state, [](Items& sorted) { dialogs::QuickSortStrings(sorted, 0, kEntries - 1); });
}
BENCHMARK(sortList)->DenseRange(0, kKinds.size() - 1)->Unit(benchmark::kMillisecond);

void sortByStandardLibrary(benchmark::State& state) {
  sortEach(state, [](Items& sorted) { std::sort(sorted.begin(), sorted.end()); });
}
BENCHMARK(sortByStandardLibrary)->DenseRange(0, kKinds.size() - 1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvrnstep
