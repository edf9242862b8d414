// The longest list in its editor: opened, scrolled, searched for a duplicate, saved. Against
// filling and showing a bare list widget with the same entries.

#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "kvrnstep/listwright.hpp"

namespace {

constexpr int kEntries = 32'001;

QString entry(int number) {
  return QStringLiteral("Prefix number %1").arg(number);
}

/// Milliseconds that each step took.
struct Times {
  double open = 0;
  double scroll = 0;
  double findDuplicate = 0;
  double save = 0;
};

QWidget* windowCalled(const QString& title) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowTitle() == title) return window;
  }
  return nullptr;
}

double milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void press(const QWidget& window, const char* button) {
  window.findChild<QAbstractButton*>(button)->click();
}

/// What a user does in the editor, once it has been painted.
void useEditor(QWidget& editor, Times& times) {
  auto& list = *editor.findChild<QAbstractItemView*>("lstEdit");
  QElapsedTimer timer;
  timer.start();
  for (const int row : {kEntries - 1, kEntries / 2, 0}) {
    list.verticalScrollBar()->setValue(row);
    list.viewport()->repaint();
  }
  times.scroll = milliseconds(timer) / 3;

  QTest::keyClicks(editor.findChild<QWidget*>("txtAdd"), entry(kEntries - 1).toUpper());
  timer.start();
  press(editor, "cmdAdd");
  list.viewport()->repaint();
  times.findDuplicate = milliseconds(timer);

  timer.start();
  press(editor, "cmdOK");
  times.save = milliseconds(timer);
}

/// Opens the editor from the dialog, uses it and closes both.
Times editLongList(const kvrnstep::Listwright& plugin, const QString& folder) {
  Times times;
  const std::string steps = folder.toStdString();
  const std::string settings = steps + "/steps.ini";
  QElapsedTimer opened;
  QTimer::singleShot(0, [&] {
    QWidget* dialog = windowCalled("Listwright");
    QTimer::singleShot(0, [&] {
      QWidget* editor = windowCalled("Edit Step - Prefixes");
      editor->repaint();
      times.open = milliseconds(opened);
      useEditor(*editor, times);
    });
    opened.start();
    for (QAction* action : dialog->findChildren<QAction*>()) {
      if (action->text().startsWith("Edit Prefix")) action->trigger();
    }
    dialog->close();
  });
  std::string text;
  kvrnstep_dialog arguments = kvrnstep::kDialogDefaults;
  arguments.sPthStepFolder = steps.c_str();
  arguments.SEC_APP_NAME = "Listwright";
  arguments.s_IniPathAndName = settings.c_str();
  plugin.ShowListwrightDialog(text, arguments);
  return times;
}

QStringList entries() {
  QStringList all;
  for (int i = 0; i < kEntries; ++i) all << entry(i);
  return all;
}

void longList(benchmark::State& state, double Times::*step) {
  const auto plugin = kvrnstep::Listwright::load(PLUGIN_LIBRARY);
  const QTemporaryDir folder;
  QFile file(folder.filePath("Prefix_Step.dat"));
  if (!file.open(QFile::WriteOnly)) return;
  file.write((entries().join("\r\n") + "\r\n").toUtf8());
  file.close();
  for (auto _ : state) state.SetIterationTime(editLongList(plugin, folder.path()).*step / 1e3);
}
BENCHMARK_CAPTURE(longList, open, &Times::open)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(longList, scroll, &Times::scroll)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(longList, findDuplicate, &Times::findDuplicate)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(longList, save, &Times::save)->Unit(benchmark::kMillisecond)->UseManualTime();

void fillBareListWidget(benchmark::State& state) {
  const QStringList texts = entries();
  for (auto _ : state) {
    QListWidget list;
    list.addItems(texts);
    list.show();
    list.repaint();
  }
}
BENCHMARK(fillBareListWidget)->Unit(benchmark::kMillisecond);

}  // namespace
