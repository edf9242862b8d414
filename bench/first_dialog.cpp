// A process that shows one dialog, closes it when it has been painted, and ends: the plug-in's,
// with its files in a folder, or a bare one with the same widgets.

#include <QFile>
#include <clocale>
#include <cstring>
#include <memory>

#include "bare_dialog.h"
#include "kvrnstep/listwright.hpp"

namespace {

namespace bench = kvrnstep::bench;

std::unique_ptr<bench::Opening> opening;
std::function<void(QWidget&)> look = [](QWidget&) {};

/// Called when there is an application, the plug-in's or our own.
void closeWhenPainted() {
  opening = std::make_unique<bench::Opening>();
  opening->look = look;
}
Q_COREAPP_STARTUP_FUNCTION(closeWhenPainted)

void showOurs(const std::string& folder) {
  std::setlocale(LC_ALL, "");  // as editors do, and Qt does for the bare one
  const std::string settings = folder + "/steps.ini";
  kvrnstep_dialog arguments = kvrnstep::kDialogDefaults;
  arguments.sPthStepFolder = folder.c_str();
  arguments.SEC_APP_NAME = "Listwright";
  arguments.s_IniPathAndName = settings.c_str();
  std::string list;
  kvrnstep::Listwright::load(PLUGIN_LIBRARY).ShowListwrightDialog(list, arguments);
}

void showBare(int argc, char** argv, QFile& file) {
  const QApplication application(argc, argv);
  bench::Design design;
  if (!file.open(QFile::ReadOnly)) return;
  QDataStream stream(&file);
  stream >> design;
  QDialog dialog;
  design.fill(dialog);
  dialog.exec();
}

}  // namespace

/// FOLDER ours|design|bare; "design" leaves in the folder what "bare" reads
int main(int argc, char** argv) {
  const std::string folder = argv[1];
  QFile file(QString::fromStdString(folder + "/design"));
  if (std::strcmp(argv[2], "bare") == 0) {
    showBare(argc, argv, file);
    return 0;
  }
  if (std::strcmp(argv[2], "design") == 0) {
    look = [&file](const QWidget& window) {
      if (!file.open(QFile::WriteOnly)) return;
      QDataStream stream(&file);
      stream << bench::Design(window);
      file.close();
    };
  }
  showOurs(folder);
}
