// From the call to the first paint and back: the dialog, against a bare one with as many widgets.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "kvrnstep/listwright.hpp"

namespace {

int widgetsOf(const QWidget& window) {
  return static_cast<int>(window.findChildren<QWidget*>().size());
}

/// Closes the window that is open as soon as it has been painted.
class Closer : public QObject {
 public:
  Closer() { qApp->installEventFilter(this); }

  int widgets = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
      QTimer::singleShot(0, widget, [this, widget] {
        widgets = widgetsOf(*widget);
        widget->close();
      });
    }
    return QObject::eventFilter(watched, event);
  }
};

int dialogWidgets = 0;

void openDialog(benchmark::State& state) {
  const auto plugin = kvrnstep::Listwright::load(PLUGIN_LIBRARY);
  const QTemporaryDir folder;
  const std::string steps = folder.path().toStdString();
  const std::string settings = steps + "/steps.ini";
  Closer closer;
  const kvrnstep::DialogArguments arguments{
      .sPthStepFolder = steps, .SEC_APP_NAME = "Listwright", .s_IniPathAndName = settings};
  std::string list;
  plugin.ShowListwrightDialog(list, arguments);  // the first one loads the front end
  for (auto _ : state) plugin.ShowListwrightDialog(list, arguments);
  dialogWidgets = closer.widgets;
}
BENCHMARK(openDialog)->Unit(benchmark::kMillisecond);

void openBareDialog(benchmark::State& state) {
  const Closer closer;
  for (auto _ : state) {
    QDialog dialog;
    for (int i = 0; i < dialogWidgets; ++i) {
      auto* box = new QCheckBox("A caption", &dialog);
      box->setGeometry(i % 4 * 66, i / 4 * 18, 64, 17);
    }
    dialog.setFixedSize(272, 321);
    dialog.exec();
  }
}
BENCHMARK(openBareDialog)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
