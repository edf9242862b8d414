// Step files: whatever the bytes, what is read of them can be written, read again and generated.

#include "stepfiles/step_record.h"

#include "fuzz.h"
#include "generator/generator.h"
#include "stepfiles/quote_placeholder.h"

namespace {

using namespace kvrnstep;

/// No label of up to 99 steps is longer than this, nor is what a macro gives.
constexpr std::size_t kLongestLabel = 12;

std::size_t roomFor(const generator::ListSettings& settings, std::size_t indent) {
  const std::size_t affixes = settings.Prefix.size() + settings.Suffix.size() + 2;
  const std::size_t spacing = 10 * (indent + 2);
  return settings.Beginning.size() + settings.Ending.size() +
         99 * (indent + affixes + kLongestLabel + spacing);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = fuzz::bytesOf(data, size);
  const auto settings = stepfiles::parseStepRecord(bytes);
  const std::string written = stepfiles::formatStepRecord(settings);
  fuzz::check(stepfiles::parseStepRecord(written) == settings, "a setup is read as it was written");
  fuzz::check(stepfiles::formatStepRecord(settings) == written, "writing gives the same twice");

  const bool listed = settings.Selection >= 0 && settings.Selection <= 3;
  fuzz::check(stepfiles::isStepRecord(written) == listed, "what was written is recognised");
  fuzz::check(listed || !stepfiles::isStepRecord(bytes), "no other listing type is recognised");

  FuzzedDataProvider input(data, size);
  auto any = fuzz::anySettings(input, 64);
  const std::string record = stepfiles::formatStepRecord(any);
  for (std::u16string* text : {&any.Beginning, &any.Ending, &any.Prefix, &any.Suffix}) {
    // Who types the token that stands for a double quote gets a double quote back.
    *text = stepfiles::withQuotes(*text);
  }
  fuzz::check(stepfiles::parseStepRecord(record) == any, "any setup comes back");

  const auto shown = stepfiles::withinRanges(settings);
  fuzz::check(shown == stepfiles::withinRanges(shown), "numbers in range stay");
  fuzz::check(generator::generateList(shown, 4).size() <= roomFor(shown, 4), "a list stays small");
  return 0;
}
