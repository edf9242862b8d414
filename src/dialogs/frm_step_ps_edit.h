#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dialogs/affix_list.h"
#include "dialogs/dialog.h"

namespace kvrnstep::dialogs {

/// The editor of the list of favourite prefixes or suffixes. Set PivitWhat, then showModal().
/// Only OK writes the list file.
class frmStepPSEdit : public Dialog {
 public:
  frmStepPSEdit(forms::Toolkit& toolkit, const plugin::HostContext& host);

  std::uint8_t PivitWhat = 0;  ///< 0 edits the prefixes, 1 the suffixes, anything else nothing

 private:
  void Form_Load();
  void cmdAdd_Click();
  void cmdEdO_Click();
  void cmdDelete_Click();
  void moveSelected(int by);
  void cmdSort_Click();
  void cmdCases_Click(int Index);
  void cmdOK_Click();

  [[nodiscard]] int findExact(const std::u16string& text) const;
  [[nodiscard]] int selected() const { return lstEdit.entries().selected; }
  [[nodiscard]] bool entrySelected() const { return lstEdit.ListCount() > 0 && selected() >= 0; }
  void showEntry(int index);
  void enableSelectionButtons(bool enabled);
  void enableSort();
  void playFinishSound();

  forms::ListBox& lstEdit = control<forms::ListBox>("lstEdit");
  forms::TextBox& txtAdd = control<forms::TextBox>("txtAdd");
  std::optional<AffixFile<forms::ListBox>> file_;
};

extern const forms::WindowDesign frmStepPSEditDesign;

}  // namespace kvrnstep::dialogs
