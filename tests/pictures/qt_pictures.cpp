/// Draws every window, layout and box of the plug-in with Qt, and compares such pictures:
///
///     pictures draw FOLDER SUFFIX     writes FOLDER/NAME-SUFFIX.png for each of them
///     pictures darken FOLDER SUFFIX   the same, with the desktop turning dark while it is open
///     pictures compare KEPT DRAWN     ends with 1 where the pictures in two folders differ
///
/// Scale and colours come from the environment, as for every program with Qt.
#include <QApplication>
#include <QDir>
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
    if (darken) QApplication::setPalette(qt::darkPalette());
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

bool differs(QRgb one, QRgb other) {
  constexpr int kTolerance = 48;
  return std::abs(qRed(one) - qRed(other)) > kTolerance ||
         std::abs(qGreen(one) - qGreen(other)) > kTolerance ||
         std::abs(qBlue(one) - qBlue(other)) > kTolerance;
}

/// Thousandths of the pixels; all of them where the sizes differ.
double difference(const QImage& one, const QImage& other) {
  constexpr double kAll = 1000;
  if (one.isNull() || one.size() != other.size()) return kAll;
  long differing = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) differing += differs(one.pixel(x, y), other.pixel(x, y));
  }
  return kAll * static_cast<double>(differing) / one.width() / one.height();
}

int compare(const QDir& kept, const QDir& drawn) {
  constexpr double kAccepted = 0.5;
  const QStringList names = drawn.entryList({"*.png"}, QDir::Files);
  bool same = !names.isEmpty();
  if (kept.entryList({"*.png"}, QDir::Files) != names) {
    std::puts("there are other pictures than the kept ones");
    same = false;
  }
  for (const QString& name : names) {
    const double found = difference(QImage(kept.filePath(name)), QImage(drawn.filePath(name)));
    if (found <= kAccepted) continue;
    std::printf("%s: %.1f of 1000 pixels are different\n", qPrintable(name), found);
    same = false;
  }
  return same ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<QString> words(argv + 1, argv + argc);
  if (words.size() != 3) return 2;
  if (words[0] != "compare") return drawAll(words[1], words[2], words[0] == "darken");
  return compare(QDir(words[1]), QDir(words[2]));
}
