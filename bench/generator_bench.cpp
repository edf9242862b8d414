// The generator and the preview refresh, against copying the bytes they make.

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "dialogs/frm_listwright.h"
#include "forms/user_actions.h"
#include "generator/generator.h"
#include "headless_toolkit.h"

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

void copyOfTheBytes(benchmark::State& state) {
  const auto text = kvrnstep::generator::generateList(everyOption(), 4);
  std::vector<char16_t> target(text.size());
  for (auto _ : state) {
    std::memcpy(target.data(), text.data(), text.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(target.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(copyOfTheBytes);

void generator(benchmark::State& state) {
  const auto settings = everyOption();
  for (auto _ : state) benchmark::DoNotOptimize(kvrnstep::generator::generateList(settings, 4));
}
BENCHMARK(generator);

/// Opens the dialog with the preview shown, and refreshes it again and again.
class Refresher final : public kvrnstep::forms::Pilot {
 public:
  Refresher(benchmark::State& state, kvrnstep::dialogs::frmListwright& dialog)
      : state_(state), dialog_(dialog) {}

  void act() override {
    setUp();
    for (auto _ : state_) dialog_.RefreshPreview();
    kvrnstep::forms::userClosed(dialog_);
  }
  std::optional<std::u16string> answer() override { return std::nullopt; }

 private:
  void setUp() {
    using kvrnstep::forms::TextControl;
    const auto put = [this](std::string_view name, int index, std::u16string text) {
      static_cast<TextControl*>(dialog_.find(name, index))->setText(std::move(text));
    };
    const ListSettings settings = everyOption();
    put("cboPreSuf", 0, settings.Prefix);
    put("cboPreSuf", 1, settings.Suffix);
    put("txtBEndAt", -1, u"99");
    put("txtLS", -1, u"1");
    put("txtBegin", -1, settings.Beginning);
    put("txtEnd", -1, settings.Ending);
    kvrnstep::forms::userClicked(*dialog_.find("chkLWO", 6));
    kvrnstep::forms::userClicked(*dialog_.find("mnuOptions", 5));
  }

  benchmark::State& state_;
  kvrnstep::dialogs::frmListwright& dialog_;
};

void previewRefresh(benchmark::State& state) {
  kvrnstep::plugin::HostContext host;
  host.bytSpcCount = 4;
  kvrnstep::headless::HeadlessToolkit toolkit;
  kvrnstep::dialogs::frmListwright dialog(toolkit, host);
  Refresher refresher(state, dialog);
  toolkit.setPilot(refresher);
  dialog.showModal(toolkit);
}
BENCHMARK(previewRefresh);

}  // namespace
