#include "dialogs/step_file_list.h"

#include <utility>

#include "platform/files.h"
#include "stepfiles/step_folder.h"

namespace kvrnstep::dialogs {

namespace {

/// The pop-up menu.
enum Entry : int { Open = 0, Delete = 2 };

}  // namespace

StepFileList::StepFileList(Dialog& dialog, std::function<void(const std::u16string&)> open)
    : dialog_(dialog), OpenaStepFile(std::move(open)) {
  lstStepf.onDblClick = [this](int /*index*/) { lstStepf_DblClick(); };
  lstStepf.onMouseUp = [this](int /*index*/, forms::MouseButton button) {
    lstStepf_MouseUp(button);
  };
  dialog.onClick("mnuHidd", [this](int index) { mnuHidd_Click(index); });
}

void StepFileList::FillStepFileList() {
  lstStepf.setItems(stepfiles::stepFileEntries(dialog_.host().sPthStepFolder));
}

void StepFileList::DeleteStepFile(const std::u16string& path) {
  platform::deleteFile(path);
  FillStepFileList();
}

std::u16string StepFileList::selected() const {
  const int selected = lstStepf.entries().selected;
  if (selected < 0) return {};
  return stepfiles::pathOfEntry(dialog_.host().sPthStepFolder, lstStepf.List(selected));
}

void StepFileList::lstStepf_DblClick() {
  mnuHidd_Click(Open);
}

void StepFileList::lstStepf_MouseUp(forms::MouseButton button) {
  if (button != forms::MouseButton::Right) return;
  mnuHid_Click();
  dialog_.toolkit().popUp(mnuHid);
}

void StepFileList::mnuHid_Click() {
  for (const Entry entry : {Open, Delete}) {
    dialog_.control<forms::MenuEntry>("mnuHidd", entry).setEnabled(!selected().empty());
  }
}

void StepFileList::mnuHidd_Click(int index) {
  const std::u16string path = selected();
  if (path.empty()) return;
  if (index == Open) OpenaStepFile(path);
  if (index == Delete) DeleteStepFile(path);
}

}  // namespace kvrnstep::dialogs
