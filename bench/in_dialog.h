#pragma once

#include "dialogs/frm_listwright.h"
#include "forms/user_actions.h"
#include "headless_toolkit.h"

namespace kvrnstep::bench {

/// Opens the dialog on the headless front end, does `work` with it and closes it.
template <class Work>
void inDialog(plugin::HostContext& host, Work work) {
  class Worker final : public forms::Pilot {
   public:
    Worker(dialogs::frmListwright& dialog, Work& work) : dialog_(dialog), work_(work) {}

    void act() override {
      work_(dialog_);
      forms::userClosed(dialog_);
    }
    std::optional<std::u16string> answer() override { return std::nullopt; }

   private:
    dialogs::frmListwright& dialog_;
    Work& work_;
  };
  headless::HeadlessToolkit toolkit;
  dialogs::frmListwright dialog(toolkit, host);
  Worker worker(dialog, work);
  toolkit.setPilot(worker);
  dialog.showModal(toolkit);
}

}  // namespace kvrnstep::bench
