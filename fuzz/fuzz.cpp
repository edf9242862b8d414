#include "fuzz.h"

#include <cstdio>
#include <cstdlib>

namespace kvrnstep::fuzz {

void check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
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

}  // namespace kvrnstep::fuzz
