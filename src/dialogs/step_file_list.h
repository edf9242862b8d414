#pragma once

#include <functional>
#include <string>

#include "dialogs/dialog.h"

namespace kvrnstep::dialogs {

/// The list of the step files in the step folder, with its pop-up menu.
class StepFileList {
 public:
  StepFileList(Dialog& dialog, std::function<void(const std::u16string&)> OpenaStepFile);

  void FillStepFileList();
  void selectNone() { lstStepf.setIndex(-1); }

 private:
  void lstStepf_DblClick();
  void lstStepf_MouseUp(forms::MouseButton button);
  void mnuHid_Click();
  void mnuHidd_Click(int index);
  void DeleteStepFile(const std::u16string& path);
  /// The path of the selected file; empty where none is selected.
  [[nodiscard]] std::u16string selected() const;

  Dialog& dialog_;
  std::function<void(const std::u16string&)> OpenaStepFile;
  forms::ListBox& lstStepf = dialog_.control<forms::ListBox>("lstStepf");
  forms::MenuEntry& mnuHid = dialog_.control<forms::MenuEntry>("mnuHid");
};

}  // namespace kvrnstep::dialogs
