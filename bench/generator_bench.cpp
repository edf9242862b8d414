// The generator, and the preview refresh around it.

#include <benchmark/benchmark.h>

#include "generator/generator.h"
#include "in_dialog.h"

namespace {

using kvrnstep::generator::ListSettings;

ListSettings everyOption() {
  return {.Selection = 0,
          .Option = {1, 1, 1, 1, 1, 1, 1},
          .Prefix = u"Step {STEP_R}",
          .Suffix = u"of {STEP_L}:",
          .Start = 1,
          .Count = 99,
          .LineSpacing = 1,
          .Beginning = u"Beginning\r\n",
          .Ending = u"Ending"};
}

void generator(benchmark::State& state) {
  const auto settings = everyOption();
  for (auto _ : state) benchmark::DoNotOptimize(kvrnstep::generator::generateList(settings, 4));
}
BENCHMARK(generator);

/// Puts the settings into the controls and shows the preview.
void setUp(const kvrnstep::dialogs::frmListwright& dialog, const ListSettings& settings) {
  using kvrnstep::forms::TextControl;
  const auto put = [&](std::string_view name, int index, std::u16string text) {
    static_cast<TextControl*>(dialog.find(name, index))->setText(std::move(text));
  };
  put("cboPreSuf", 0, settings.Prefix);
  put("cboPreSuf", 1, settings.Suffix);
  put("txtBEndAt", -1, u"99");
  put("txtLS", -1, u"1");
  put("txtBegin", -1, settings.Beginning);
  put("txtEnd", -1, settings.Ending);
  kvrnstep::forms::userClicked(*dialog.find("chkLWO", 6));
  kvrnstep::forms::userClicked(*dialog.find("mnuOptions", 5));
}

void previewRefresh(benchmark::State& state) {
  kvrnstep::bench::inDialog([&](kvrnstep::dialogs::frmListwright& dialog) {
    setUp(dialog, everyOption());
    for (auto _ : state) dialog.RefreshPreview();
  });
}
BENCHMARK(previewRefresh);

}  // namespace
