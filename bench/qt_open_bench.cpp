// From the call to the first paint of the dialog, against a bare dialog with widgets of the same
// kinds in the same places.

#include <benchmark/benchmark.h>

#include "bare_dialog.h"
#include "qt_dialog.h"

namespace {

using kvrnstep::bench::Design;
using kvrnstep::bench::Dialog;
using kvrnstep::bench::Opening;

const Design& design() {
  static const Design kDesign = [] {
    Design found;
    Opening opening;
    opening.look = [&](QWidget& window) { found = Design(window); };
    opening.measure([] { Dialog().open(); });
    return found;
  }();
  return kDesign;
}

void openDialog(benchmark::State& state) {
  design();  // the first call loads the front end
  const Dialog dialog;
  Opening opening;
  for (auto _ : state) state.SetIterationTime(opening.measure([&] { dialog.open(); }));
}
BENCHMARK(openDialog)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(50);

void openDialogOfSameKinds(benchmark::State& state) {
  design();
  Opening opening;
  for (auto _ : state) {
    state.SetIterationTime(opening.measure([] {
      QDialog dialog;
      design().fill(dialog);
      dialog.exec();
    }));
  }
}
BENCHMARK(openDialogOfSameKinds)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(50);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
