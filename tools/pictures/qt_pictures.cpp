/// Draws every window, layout and box of the plug-in with Qt:
///
///     pictures draw FOLDER SUFFIX     writes FOLDER/NAME-SUFFIX.png for each of them
///     pictures darken FOLDER SUFFIX   the same, with the desktop turning dark while it is open
///
/// Scale and colours come from the environment, as for every program with Qt.
#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "color_scheme.h"
#include "menu_view.h"
#include "qt_application.h"
#include "qt_toolkit.h"
#include "scenes.h"

using kvrnstep::dialogs::frmListwright;
using namespace kvrnstep;

namespace {

/// Takes a picture of what opens last and closes everything again.
class Photographer : public qt::Attendant {
 public:
  explicit Photographer(QString file) : file_(std::move(file)) {}

  /// What to do with the dialog before it is taken.
  std::function<void(forms::Window&)> prepare;
  bool darken = false;

  void windowOpened(qt::WindowView& view) override {
    QTimer::singleShot(0, &view.topLevel(), [this, &view] {
      if (prepare) std::exchange(prepare, nullptr)(view.window());
      take(view.topLevel());
      view.window().unload();
    });
  }
  void messageOpened(QMessageBox& box) override { takeAndReject(box); }
  void questionOpened(qt::QuestionBox& box) override { takeAndReject(box); }
  void fileBoxOpened(qt::FileBox& box) override { takeAndReject(box); }
  void popUpOpened(QMenu& menu) override {
    QTimer::singleShot(0, &menu, [this, &menu] {
      take(menu);
      menu.close();
    });
  }

 private:
  void takeAndReject(QDialog& box) {
    QTimer::singleShot(0, &box, [this, &box] {
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
    if (!widget.grab().save(file_)) std::exit(2);
  }

  QString file_;
  bool taken_ = false;
};

int drawAll(const QString& folder, const QString& suffix, bool darken) {
  std::string problem;
  if (!qt::provideApplication(problem)) {
    std::fprintf(stderr, "%s\n", problem.c_str());
    return 2;
  }
  const QPalette atFirst = QApplication::palette();
  for (const pictures::Scene& scene : pictures::scenes()) {
    const pictures::Folder files;
    QApplication::setPalette(atFirst);
    Photographer photographer(folder + '/' + scene.name.c_str() + '-' + suffix + ".png");
    photographer.darken = darken;
    photographer.prepare = scene.prepare;
    qt::QtToolkit toolkit(&photographer);
    const plugin::HostContext host = pictures::hostOf(files);
    frmListwright(toolkit, host).showModal(toolkit);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<QString> words(argv + 1, argv + argc);
  if (words.size() != 3) return 2;
  return drawAll(words[1], words[2], words[0] == "darken");
}
