// From the call to the first paint of the dialog, against a bare dialog with widgets of the same
// kinds in the same places.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include "qt_dialog.h"

namespace {

/// Closes the window that opens as soon as it has been painted, and tells how long that took.
class Opening : public QObject {
 public:
  Opening() { qApp->installEventFilter(this); }

  /// Seconds from the call to the first paint.
  template <class Open>
  double measure(Open open) {
    painted_ = false;
    timer_.start();
    open();
    return static_cast<double>(nanoseconds_) / 1e9;
  }

  std::function<void(QWidget&)> look = [](QWidget&) {};

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow() && !painted_) {
      painted_ = true;
      QTimer::singleShot(0, widget, [this, widget] {
        nanoseconds_ = timer_.nsecsElapsed();
        look(*widget);
        widget->close();
      });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QElapsedTimer timer_;
  qint64 nanoseconds_ = 0;
  bool painted_ = false;
};

/// A widget of a bare dialog.
struct Part {
  using Maker = QWidget* (*)(QWidget* parent);

  Maker make = nullptr;
  QRect place;
  bool hidden = false;
  QString caption;
  std::vector<Part> within;
};

/// Kinds whose own parts come with them.
Part::Maker wholeKind(const QWidget& widget) {
  if (widget.inherits("QComboBox")) {
    return [](QWidget* parent) -> QWidget* {
      auto* box = new QComboBox(parent);
      box->setEditable(true);
      return box;
    };
  }
  if (widget.inherits("QPlainTextEdit")) {
    return [](QWidget* parent) -> QWidget* { return new QPlainTextEdit(parent); };
  }
  if (widget.inherits("QListView")) {
    return [](QWidget* parent) -> QWidget* { return new QListView(parent); };
  }
  if (widget.inherits("QLineEdit")) {
    return [](QWidget* parent) -> QWidget* { return new QLineEdit(parent); };
  }
  return nullptr;
}

Part::Maker makerOf(const QWidget& widget) {
  if (const auto whole = wholeKind(widget)) return whole;
  if (widget.inherits("QCheckBox")) {
    return [](QWidget* parent) -> QWidget* { return new QCheckBox(parent); };
  }
  if (widget.inherits("QRadioButton")) {
    return [](QWidget* parent) -> QWidget* { return new QRadioButton(parent); };
  }
  if (widget.inherits("QPushButton")) {
    return [](QWidget* parent) -> QWidget* { return new QPushButton(parent); };
  }
  if (widget.inherits("QToolButton")) {
    return [](QWidget* parent) -> QWidget* { return new QToolButton(parent); };
  }
  if (widget.inherits("QLabel")) {
    return [](QWidget* parent) -> QWidget* { return new QLabel(parent); };
  }
  return [](QWidget* parent) { return new QWidget(parent); };
}

std::vector<Part> partsOf(const QWidget& widget) {
  std::vector<Part> parts;
  for (const QWidget* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (child->isWindow() || child->inherits("QMenuBar")) continue;
    parts.push_back({makerOf(*child),
                     child->geometry(),
                     child->isHidden(),
                     child->property("text").toString(),
                     {}});
    if (wholeKind(*child) == nullptr) parts.back().within = partsOf(*child);
  }
  return parts;
}

/// What the dialog consists of.
struct Design {
  QSize size;
  int menus = 0;
  std::vector<Part> parts;
};

const Design& design() {
  static const Design kDesign = [] {
    Design found;
    Opening opening;
    opening.look = [&](QWidget& window) {
      found = {window.size(), static_cast<int>(window.findChildren<QMenu*>().size()),
               partsOf(window)};
    };
    const kvrnstep::bench::Dialog dialog;
    opening.measure([&] { dialog.open(); });
    return found;
  }();
  return kDesign;
}

void fill(QWidget& parent, const std::vector<Part>& parts) {
  for (const Part& part : parts) {
    QWidget* widget = part.make(&parent);
    widget->setGeometry(part.place);
    if (!part.caption.isEmpty()) widget->setProperty("text", part.caption);
    if (part.hidden) widget->hide();
    fill(*widget, part.within);
  }
}

void openDialog(benchmark::State& state) {
  design();  // the first call loads the front end
  const kvrnstep::bench::Dialog dialog;
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
      auto* bar = new QMenuBar(&dialog);
      for (int i = 0; i < design().menus; ++i) bar->addMenu("Menu");
      fill(dialog, design().parts);
      dialog.setFixedSize(design().size);
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
