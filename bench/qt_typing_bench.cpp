// From a key in the End box to the repainted preview, against setting the same text in a bare text
// widget and repainting that.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include "qt_dialog.h"

namespace {

QString previewText;

QWidget* dialog() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowTitle() == "Listwright") return window;
  }
  return nullptr;
}

/// Runs the work in the open dialog, with its preview shown, and closes it.
template <class Work>
void inDialog(Work work) {
  QTimer::singleShot(0, [&] {
    for (QAction* action : dialog()->findChildren<QAction*>()) {
      if (action->text() == "Display Preview") action->trigger();
    }
    work(*dialog()->findChild<QLineEdit*>("txtBEndAt"),
         *dialog()->findChild<QPlainTextEdit*>("txtPreview"));
    dialog()->close();
  });
  kvrnstep::bench::Dialog().open();
}

void typeIntoEndBox(benchmark::State& state) {
  inDialog([&](QLineEdit& end, QPlainTextEdit& preview) {
    end.setFocus();
    for (auto _ : state) {
      state.PauseTiming();
      end.selectAll();
      QTest::keyClick(&end, Qt::Key_9);
      QCoreApplication::processEvents();
      state.ResumeTiming();
      QTest::keyClick(&end, Qt::Key_9);
      preview.viewport()->repaint();
    }
    previewText = preview.toPlainText();
  });
}
BENCHMARK(typeIntoEndBox)->Unit(benchmark::kMicrosecond);

void setBareText(benchmark::State& state) {
  QPlainTextEdit bare;
  bare.setFont(QFont("Liberation Mono", 9));
  bare.setLineWrapMode(QPlainTextEdit::NoWrap);
  bare.resize(265, 264);
  bare.show();
  for (auto _ : state) {
    state.PauseTiming();
    bare.setPlainText(previewText.left(200));
    QCoreApplication::processEvents();
    state.ResumeTiming();
    bare.setPlainText(previewText);
    bare.viewport()->repaint();
  }
}
BENCHMARK(setBareText)->Unit(benchmark::kMicrosecond);

}  // namespace
