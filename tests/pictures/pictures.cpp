/// Draws every window, layout and box of the plug-in with Qt, and compares such pictures:
///
///     pictures draw FOLDER SUFFIX     writes FOLDER/NAME-SUFFIX.png for each of them
///     pictures darken FOLDER SUFFIX   the same, with the desktop turning dark while it is open
///     pictures compare KEPT DRAWN     ends with 1 where the pictures in two folders differ
///
/// Scale and colours come from the environment, as for every program with Qt.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "color_scheme.h"
#include "dialogs/frm_listwright.h"
#include "forms/user_actions.h"
#include "menu_view.h"
#include "qt_application.h"
#include "qt_toolkit.h"
#include "storage/text_file.h"
#include "text.h"

using kvrnstep::dialogs::frmListwright;
using namespace kvrnstep;

namespace {

/// A folder with a few files of each kind, for windows that have something to show.
class Folder {
 public:
  Folder() {
    for (const char16_t* name : {u"Numbered list", u"Chapters in Roman numerals", u"Questions"}) {
      write(std::u16string(name) + u".step", u"");
    }
    write(u"Prefix_Step.dat", u"Step\r\nChapter\r\nNo. {STEP_R}\r\n§\r\n");
    write(u"Suffix_Step.dat", u".\r\n)\r\n:\r\n");
    write(u"beginning_step.dat",
          u"\"What to do when the alarm rings:\"\r\n\"\"\r\n\"Agenda\r\n======\"\r\n");
  }
  [[nodiscard]] std::u16string path() const { return qt::fromQt(folder_.path()); }

 private:
  void write(const std::u16string& name, const std::u16string& text) {
    storage::WriteTextFile(path() + u'/' + name, text);
  }

  QTemporaryDir folder_;
};

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

struct Scene {
  const char* name;
  void (*prepare)(forms::Window& window);
};

void click(forms::Window& window, std::string_view name, int index) {
  forms::userClicked(*window.find(name, index));
}

void writeList(forms::Window& window) {
  const auto text = [&window](const char* name, int index, const char16_t* value) {
    window.find(name, index)->set(forms::Property::Text, std::u16string(value));
  };
  click(window, "optNA", 2);
  text("cboPreSuf", 0, u"Step");
  text("cboPreSuf", 1, u")");
  text("txtBEndAt", -1, u"8");
  text("txtBegin", -1, u"What to do when the alarm rings:\r\n");
}

constexpr std::array kScenes{
    Scene{"compact", [](forms::Window& /*window*/) {}},
    Scene{"preview",
          [](forms::Window& window) {
            writeList(window);
            click(window, "mnuOptions", 5);
          }},
    Scene{"files", [](forms::Window& window) { click(window, "mnuOptions", 4); }},
    Scene{"files-and-preview",
          [](forms::Window& window) {
            writeList(window);
            click(window, "mnuOptions", 4);
            click(window, "mnuOptions", 5);
            forms::userClickedEntry(static_cast<forms::ListBox&>(*window.find("lstStepf", -1)), 1);
          }},
    Scene{"prefixes", [](forms::Window& window) { click(window, "mnuEdits", 0); }},
    Scene{"beginnings", [](forms::Window& window) { click(window, "mnuEdits", 3); }},
    Scene{"question",
          [](forms::Window& window) {
            forms::userReleasedMouse(*window.find("updBEndAt", -1), forms::MouseButton::Right);
          }},
    Scene{"step-file-menu",
          [](forms::Window& window) {
            click(window, "mnuOptions", 4);
            auto& list = static_cast<forms::ListBox&>(*window.find("lstStepf", -1));
            forms::userClickedEntry(list, 0);
            forms::userReleasedMouse(list, forms::MouseButton::Right);
          }},
};

void draw(const Scene& scene, const Folder& folder, const QString& file, bool darken) {
  Photographer photographer(file);
  photographer.darken = darken;
  photographer.prepare = scene.prepare;
  qt::QtToolkit toolkit(&photographer);
  plugin::HostContext host;
  host.SEC_APP_NAME = u"Listwright";
  host.sPthStepFolder = folder.path();
  host.s_IniPathAndName = folder.path() + u"/steps.ini";
  host.s_EditorFont = u"Courier New";
  host.i_EditorSize = 9;
  host.bytSpcCount = 4;
  host.l_EditorBColor = static_cast<std::int32_t>(0x80000005);
  host.l_EditorFColor = static_cast<std::int32_t>(0x80000008);
  frmListwright dialog(toolkit, host);
  dialog.showModal(toolkit);
}

int drawAll(const QString& folder, const QString& suffix, bool darken) {
  std::string problem;
  if (!qt::provideApplication(problem)) {
    std::fprintf(stderr, "%s\n", problem.c_str());
    return 2;
  }
  const QPalette atFirst = QApplication::palette();
  for (const Scene& scene : kScenes) {
    const Folder files;
    QApplication::setPalette(atFirst);
    draw(scene, files, folder + '/' + scene.name + '-' + suffix + ".png", darken);
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
