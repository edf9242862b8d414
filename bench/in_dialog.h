#pragma once

#include "dialogs/frm_listwright.h"
#include "folder.h"
#include "forms/user_actions.h"
#include "headless_toolkit.h"
#include "text/codepage.h"

namespace kvrnstep::bench {

/// Opens the dialog on the headless front end, with its files in a folder of its own, does `work`
/// with it and closes it.
template <class Work>
void inDialog(Work work) {
  class Worker final : public driving::Player {
   public:
    Worker(dialogs::frmListwright& dialog, Work& work) : dialog_(dialog), work_(work) {}

    void act() override {
      work_(dialog_);
      forms::userClosed(dialog_);
    }

   private:
    dialogs::frmListwright& dialog_;
    Work& work_;
  };
  const Folder folder;
  plugin::HostContext host;
  host.bytSpcCount = 4;
  host.sPthStepFolder = text::fromBytes(folder.path());
  host.s_IniPathAndName = text::fromBytes(folder("steps.ini"));
  headless::HeadlessToolkit toolkit;
  dialogs::frmListwright dialog(toolkit, host);
  Worker worker(dialog, work);
  toolkit.setPlayer(worker);
  dialog.showModal(toolkit);
}

}  // namespace kvrnstep::bench
