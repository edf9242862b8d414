/// Draws every window, layout and box of the plug-in with Qt:
///
///     pictures draw FOLDER SUFFIX     writes FOLDER/NAME-SUFFIX.png for each of them
///     pictures darken FOLDER SUFFIX   the same, with the desktop turning dark while it is open
///     pictures contrast               prints the contrasts of what is drawn, in every colour
///     scheme;
///                                     fails where one is too low
///
/// Scale and colours come from the environment, as for every program with Qt.
#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "color_scheme.h"
#include "contrast.h"
#include "qt_application.h"
#include "qt_toolkit.h"
#include "scenes.h"

using kvrnstep::dialogs::frmListwright;
using namespace kvrnstep;

namespace {

/// Takes a picture of what opens last and closes everything again.
class Photographer : public qt::QtToolkit {
 public:
  explicit Photographer(QString file) : file_(std::move(file)) {}

  /// What to do with the dialog before it is taken.
  std::function<void(forms::Window&)> prepare;
  bool darken = false;
  /// Where this is set no picture is taken, but the contrasts in it are measured.
  pictures::Contrasts* contrasts = nullptr;

  void runModal(forms::Window& window) override {
    whenOpen([this, &window] {
      if (prepare) std::exchange(prepare, nullptr)(window);
      take(qt::WindowView::of(window)->topLevel());
      window.unload();
    });
    QtToolkit::runModal(window);
  }
  void showMessage(const forms::Message& message) override {
    takeBox();
    QtToolkit::showMessage(message);
  }
  std::optional<std::u16string> ask(const forms::Question& question) override {
    takeBox();
    return QtToolkit::ask(question);
  }
  void popUp(forms::MenuEntry& menu) override {
    whenOpen([this] {
      QWidget& shown = *QApplication::activePopupWidget();
      take(shown);
      shown.close();
    });
    QtToolkit::popUp(menu);
  }

 private:
  /// The loop that waits for the user runs when all is shown.
  template <class Action>
  static void whenOpen(Action action) {
    QTimer::singleShot(0, QCoreApplication::instance(), action);
  }
  void takeBox() {
    whenOpen([this] {
      auto& box = static_cast<QDialog&>(*QApplication::activeModalWidget());
      take(box);
      box.reject();
    });
  }

  /// Only the first one: what is closed uncovers what lies below.
  void take(QWidget& widget) {
    if (std::exchange(taken_, true)) return;
    if (darken) QApplication::setPalette(qt::paletteOf({.dark = true}));
    QApplication::processEvents();
    // What windows do about new colours, they do when they are back in their loop.
    QApplication::sendPostedEvents();
    if (contrasts != nullptr) return pictures::measure(widget, *contrasts);
    if (!widget.grab().save(file_)) std::exit(2);
  }

  QString file_;
  bool taken_ = false;
};

void show(const pictures::Scene& scene, Photographer& photographer) {
  const pictures::Folder files;
  photographer.prepare = scene.prepare;
  const plugin::HostContext host = pictures::hostOf(files);
  frmListwright(photographer, host).showModal(photographer);
}

void drawAll(const QString& folder, const QString& suffix, bool darken) {
  const QPalette atFirst = QApplication::palette();
  for (const pictures::Scene& scene : pictures::scenes()) {
    QApplication::setPalette(atFirst);
    Photographer photographer(folder + '/' + scene.name.c_str() + '-' + suffix + ".png");
    photographer.darken = darken;
    show(scene, photographer);
  }
}

/// A table with a column for each colour scheme. False where a contrast is too low.
bool printContrasts() {
  std::vector<pictures::Contrasts> columns;
  for (const bool highContrast : {false, true}) {
    for (const bool dark : {false, true}) {
      QApplication::setPalette(qt::paletteOf({dark, highContrast}));
      pictures::Contrasts& found = columns.emplace_back();
      for (const pictures::Scene& scene : pictures::scenes()) {
        Photographer photographer({});
        photographer.contrasts = &found;
        show(scene, photographer);
      }
    }
  }
  bool enough = true;
  std::puts("| contrast of | at least | light | dark | high contrast | high contrast, dark |");
  std::puts("| --- | --- | --- | --- | --- | --- |");
  for (const auto& [kind, light] : columns.front()) {
    const double least = pictures::leastContrast(kind);
    std::printf("| %s | %.1f |", kind.c_str(), least);
    for (const pictures::Contrasts& column : columns) {
      const double contrast = column.at(kind);
      enough = enough && contrast >= least;
      std::printf(" %.1f |", contrast);
    }
    std::puts("");
  }
  return enough;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<QString> words(argv + 1, argv + argc);
  const bool contrasts = words == std::vector<QString>{"contrast"};
  if (words.size() != 3 && !contrasts) return 2;
  std::string problem;
  if (!qt::provideApplication(problem)) {
    std::fprintf(stderr, "%s\n", problem.c_str());
    return 2;
  }
  if (contrasts) return printContrasts() ? 0 : 1;
  drawAll(words[1], words[2], words[0] == "darken");
}
