#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dialogs/affix_list.h"
#include "forms/toolkit.h"
#include "plugin/host_context.h"

namespace kvrnstep::dialogs {

/// The editor of the list of favourite prefixes or suffixes. Set PivitWhat and showModal(); what
/// comes of it is in the list file, and only OK writes that.
class frmStepPSEdit : public forms::Window {
 public:
  /// Both arguments must outlive the editor.
  frmStepPSEdit(forms::Toolkit& toolkit, const plugin::HostContext& host);

  std::uint8_t PivitWhat = 0;  ///< 0 edits the prefixes, 1 the suffixes, anything else nothing

 private:
  void Form_Load();
  void Form_QueryUnload();
  void txtAdd_Change();
  void txtAdd_DragDrop(const forms::Control& Source);
  void lstEdit_Click();
  void cmdAdd_Click();
  void cmdEdO_Click();
  void cmdDelete_Click();
  void cmdPatU_Click();
  void cmdPatD_Click();
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

  forms::Toolkit& toolkit_;
  const plugin::HostContext& host_;
  forms::ListBox& lstEdit = control<forms::ListBox>("lstEdit");
  forms::TextBox& txtAdd = control<forms::TextBox>("txtAdd");
  forms::ControlArray<forms::Control, 3> lblDrag{*this, "lblDrag"};
  std::optional<AffixFile> file_;
};

/// How the editor is declared.
const forms::WindowDesign& frmStepPSEditDesign();

}  // namespace kvrnstep::dialogs
