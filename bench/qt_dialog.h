#pragma once

#include <QTemporaryDir>

#include "kvrnstep/listwright.hpp"

namespace kvrnstep::bench {

/// The dialog of the plug-in, opened again and again.
class Dialog {
 public:
  void open() const {
    std::string list;
    const std::string settings = steps_ + "/steps.ini";
    kvrnstep_dialog arguments = kDialogDefaults;
    arguments.sPthStepFolder = steps_.c_str();
    arguments.SEC_APP_NAME = "Listwright";
    arguments.s_IniPathAndName = settings.c_str();
    plugin_.ShowListwrightDialog(list, arguments);
  }

 private:
  const Listwright plugin_ = Listwright::load(PLUGIN_LIBRARY);
  const QTemporaryDir folder_;
  const std::string steps_ = folder_.path().toStdString();
};

}  // namespace kvrnstep::bench
