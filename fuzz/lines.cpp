// Numbers for the lines of any text: put in, set right, taken away.

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz.h"
#include "line_laws.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvrnstep;
  FuzzedDataProvider input(data, size);
  const auto pick = [&](std::size_t below) {
    return input.ConsumeIntegralInRange<std::size_t>(0, below - 1);
  };
  const auto options = judges::anyLineOptions(pick);
  std::string text = input.ConsumeBool() ? judges::anyLines(pick) : "";
  text += input.ConsumeRemainingBytesAsString();
  const std::string_view broken = judges::brokenLaw(text, options);
  fuzz::check(broken.empty(), std::string(broken).c_str());
  return 0;
}
