#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "folder.h"
#include "storage/list_file.h"
#include "storage/settings_store.h"
#include "text/codepage.h"

namespace kvrnstep {
namespace {

using bench::Folder;

struct Target {
  std::vector<std::u16string> entries;

  void Clear() { entries.clear(); }
  void AddItem(std::u16string text) { entries.push_back(std::move(text)); }
  [[nodiscard]] int ListCount() const { return static_cast<int>(entries.size()); }
  [[nodiscard]] const std::u16string& List(int index) const {
    return entries[static_cast<std::size_t>(index)];
  }
};

void put(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

/// The lines of the longest list; `accents` puts a character beyond ASCII into each.
std::string listBytes(bool accents) {
  std::string bytes;
  for (std::size_t i = 0; i < storage::kMostListLines; ++i) {
    bytes += (accents ? "Pr\xC3\xA9"
                        "fix number "
                      : "Prefix number ") +
             std::to_string(i) + "\r\n";
  }
  return bytes;
}

void LoadList(benchmark::State& state) {
  const Folder folder;
  put(folder("list"), listBytes(state.range(0) != 0));
  const auto path = text::fromBytes(folder("list"));
  for (auto _ : state) {
    Target target;
    storage::ListFile file(path);
    storage::LoadSaveListFile(target, false, file);
    benchmark::DoNotOptimize(target);
  }
}
BENCHMARK(LoadList)->ArgName("accents")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// The least that loading can cost: lines as UTF-16, their bytes widened without a look.
void LoadListByGetline(benchmark::State& state) {
  const Folder folder;
  put(folder("list"), listBytes(state.range(0) != 0));
  for (auto _ : state) {
    std::vector<std::u16string> lines;
    std::ifstream file(folder("list"), std::ios::binary);
    for (std::string line; std::getline(file, line);) lines.emplace_back(line.begin(), line.end());
    benchmark::DoNotOptimize(lines);
  }
}
BENCHMARK(LoadListByGetline)->ArgName("accents")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void SaveList(benchmark::State& state) {
  const Folder folder;
  const auto path = text::fromBytes(folder("list"));
  put(folder("list"), listBytes(false));
  Target target;
  for (auto _ : state) {
    state.PauseTiming();
    storage::ListFile file(path);
    storage::LoadSaveListFile(target, false, file);
    // A list that is saved unchanged is not written at all.
    target.entries.front().front() ^= 1;
    state.ResumeTiming();
    storage::LoadSaveListFile(target, true, file);
  }
}
BENCHMARK(SaveList)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Writes, flushes and renames without a look at what is there.
void plainReplace(const std::string& path, const std::string& bytes) {
  const std::string passing = path + "~";
  const int file = ::open(passing.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (::write(file, bytes.data(), bytes.size()) < 0) std::abort();
  ::fsync(file);
  ::close(file);
  std::rename(passing.c_str(), path.c_str());
}

void SaveListPlainly(benchmark::State& state) {
  const Folder folder;
  std::vector<std::string> lines;
  for (const auto& entry : storage::parseList(listBytes(false)).entries) {
    lines.push_back(text::toBytes(entry));
  }
  for (auto _ : state) {
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    plainReplace(folder("list"), bytes);
  }
}
BENCHMARK(SaveListPlainly)->Unit(benchmark::kMicrosecond)->UseRealTime();

constexpr std::size_t kLargeSettings = 1 << 20;

std::string largeSettings() {
  std::string bytes;
  for (int section = 0; bytes.size() < kLargeSettings; ++section) {
    bytes += "[Section" + std::to_string(section) + "]\r\n";
    for (int key = 0; key < 20; ++key) bytes += "Key" + std::to_string(key) + "=some value\r\n";
  }
  return bytes + "[Steps]\r\nListwright_LT=0\r\n";
}

void ReadSetting(benchmark::State& state) {
  const Folder folder;
  put(folder("ini"), largeSettings());
  const auto path = text::fromBytes(folder("ini"));
  for (auto _ : state) {
    benchmark::DoNotOptimize(modSecns::ReadIniKey(u"Steps", u"Listwright_LT", u"", path));
  }
}
BENCHMARK(ReadSetting)->Unit(benchmark::kMicrosecond);

/// @param write writes a value into the settings file of that path
void writeValues(benchmark::State& state,
                 void (*write)(const char16_t* value, const std::u16string& path)) {
  const Folder folder;
  put(folder("ini"), largeSettings());
  const auto path = text::fromBytes(folder("ini"));
  bool even = false;
  for (auto _ : state) {
    even = !even;
    write(even ? u"1000" : u"2000", path);
  }
}

void WriteSetting(benchmark::State& state) {
  writeValues(state, [](const char16_t* value, const std::u16string& path) {
    modSecns::WriteIniKey(u"Steps", u"Listwright_LT", value, path);
  });
}
BENCHMARK(WriteSetting)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// What a dialog writes when it closes.
void WriteSettings(benchmark::State& state) {
  writeValues(state, [](const char16_t* value, const std::u16string& path) {
    modSecns::IniKeys keys;
    for (const auto* name : {u"Font", u"EditorFont", u"EditorSize", u"Display", u"Listwright_LT",
                             u"Listwright_TT", u"Listwright_HT", u"Listwright_WT"}) {
      keys.emplace_back(name, value);
    }
    modSecns::WriteIniKeys(u"Steps", keys, path);
  });
}
BENCHMARK(WriteSettings)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The least that a write can cost: the file read and written again.
void CopySettingsPlainly(benchmark::State& state) {
  const Folder folder;
  put(folder("ini"), largeSettings());
  std::string bytes(largeSettings().size(), '\0');
  for (auto _ : state) {
    std::ifstream(folder("ini"), std::ios::binary)
        .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    plainReplace(folder("ini"), bytes);
  }
}
BENCHMARK(CopySettingsPlainly)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace kvrnstep
