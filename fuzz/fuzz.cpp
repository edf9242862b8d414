#include "fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kvrnstep::fuzz {

void check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

std::string_view bytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

std::u16string anyText(FuzzedDataProvider& input, std::size_t most) {
  if (input.ConsumeBool()) {
    const std::string ascii = input.ConsumeRandomLengthString(most);
    std::u16string text;
    for (const char c : ascii) text += static_cast<char16_t>(static_cast<unsigned char>(c) & 0x7FU);
    return text;
  }
  std::u16string text(input.ConsumeIntegralInRange<std::size_t>(0, most), u' ');
  for (char16_t& unit : text) unit = input.ConsumeIntegral<char16_t>();
  return text;
}

generator::ListSettings anySettings(FuzzedDataProvider& input, std::size_t longestText) {
  const bool inRange = input.ConsumeBool();
  const auto number = [&](std::int16_t least, std::int16_t most) {
    return inRange ? input.ConsumeIntegralInRange<std::int16_t>(least, most)
                   : input.ConsumeIntegral<std::int16_t>();
  };
  generator::ListSettings settings;
  settings.Selection = number(0, 3);
  for (std::int16_t& option : settings.Option) option = number(0, 1);
  settings.LineSpacing = number(0, 9);
  settings.Start = number(1, 99);
  settings.Count = number(1, 99);
  for (std::u16string* text :
       {&settings.Prefix, &settings.Suffix, &settings.Beginning, &settings.Ending}) {
    *text = anyText(input, longestText);
  }
  return settings;
}

ScratchFolder::ScratchFolder() {
  std::string name = std::filesystem::temp_directory_path() / "fuzz-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch folder");
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::u16string ScratchFolder::file(std::string_view name) const {
  return (path_ / name).u16string();
}

void writeBytes(const std::u16string& file, std::string_view bytes) {
  std::ofstream(std::filesystem::path(file), std::ios::binary) << bytes;
}

std::string readBytes(const std::u16string& file) {
  if (!std::filesystem::is_regular_file(file)) return {};
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace kvrnstep::fuzz
