// The generator, against one that puts each line together from scratch.

#include "generator/generator.h"

#include <array>

#include "fuzz.h"
#include "obvious_list.h"

namespace {

using namespace kvrnstep;
using generator::ListSettings;

/// A text in which macros are likely, and macros with another one in place of some characters.
std::u16string affix(FuzzedDataProvider& input) {
  static constexpr std::array<std::u16string_view, 3> kMacros{u"{STEP_#}", u"{STEP_L}",
                                                              u"{STEP_R}"};
  if (input.ConsumeBool()) return fuzz::anyText(input, 64);
  std::u16string text;
  for (int parts = input.ConsumeIntegralInRange(0, 4); parts > 0; --parts) {
    const std::u16string_view macro = input.PickValueInArray(kMacros);
    const auto at = input.ConsumeIntegralInRange<std::size_t>(0, macro.size());
    const auto lost = input.ConsumeIntegralInRange<std::size_t>(0, macro.size() - at);
    text += macro.substr(0, at);
    if (input.ConsumeBool()) text += input.PickValueInArray(kMacros);
    text += macro.substr(at + lost);
  }
  return text;
}

/// A list of up to 400 lines, mostly of those that the dialog can make; far more would only be
/// slow.
ListSettings anyList(FuzzedDataProvider& input) {
  ListSettings settings = fuzz::anySettings(input, 32);
  settings.Prefix = affix(input);
  settings.Suffix = affix(input);
  constexpr int kMostLines = 400;
  if (settings.Count - settings.Start >= kMostLines) {
    settings.Start = static_cast<std::int16_t>(settings.Count - kMostLines + 1);
  }
  return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const ListSettings settings = anyList(input);
  const std::size_t indent = input.ConsumeIntegral<std::uint8_t>();
  const std::u16string list = generator::generateList(settings, indent);
  // Labels of more than 99 steps are not lined up.
  const bool ordinary =
      !settings.on(generator::RightAlign) || (settings.Count > 0 && settings.Count <= 99);
  if (ordinary)
    fuzz::check(list == judges::obviousList(settings, indent), "lines are put together so");

  if (settings.Start > settings.Count) {
    const std::size_t around = settings.Beginning.size() + settings.Ending.size();
    fuzz::check(list.size() == (settings.on(generator::AddBegEnd) ? around : 0),
                "no step, no line");
  }
  return 0;
}
