#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dialogs/affix_list.h"
#include "dialogs/dialog.h"
#include "dialogs/list_fields.h"
#include "dialogs/panels.h"
#include "dialogs/step_file_list.h"
#include "stepfiles/open_defaults.h"

namespace kvrnstep::dialogs {

/// The dialog in which the user builds a list. One instance serves one call of the host: set
/// LwStepStart and LwMenuMode, showModal(), then read LwSelectionMade and LwOutputString.
class frmListwright : public Dialog {
 public:
  frmListwright(forms::Toolkit& toolkit, const plugin::HostContext& host);

  /// Listing type to begin with.
  void LwStepStart(const std::int16_t& theLwStepStart) { lwStepStart_ = theLwStepStart; }
  [[nodiscard]] std::int16_t LwStepStart() const { return lwStepStart_; }
  /// Whether the host's listing type counts more than the one in stored defaults.
  void LwMenuMode(const bool& theLwMenuMode) { lwMenuMode_ = theLwMenuMode; }
  /// Whether Insert leaves the list on the clipboard, too.
  void insertCopies(bool copies) { insertCopies_ = copies; }
  [[nodiscard]] bool LwSelectionMade() const { return lwSelectionMade_; }
  [[nodiscard]] const std::u16string& LwOutputString() const { return lwOutputString_; }

  /// Generates the list anew and shows it in the preview, while a panel is shown.
  void RefreshPreview();

 private:
  void Form_Load();
  void Form_QueryUnload();
  void adoptEditorLook();
  [[nodiscard]] stepfiles::OpenDefaultsPlace openDefaultsPlace() const;

  void cmdCIC_Click(int index);
  void mnuActions_Click(int index) { cmdCIC_Click(index); }
  void mnuFiles_Click(int index);
  void mnuEdits_Click(int index);
  void mnuOptions_Click(int index);
  void lblD_MouseUp(int index);

  void SetActionsEnabled(bool bolEnable);
  /// Makes the list, with the count that is in the End box. False: no list can be made, and the
  /// user has been told why.
  /// @param forPreview shows no message about a list that is too long, because each key makes a
  /// list
  bool BuildStepList(bool forPreview = false);
  [[nodiscard]] std::u16string takeList(bool forPreview = false);
  void PrintStepList(const std::u16string& text);

  void OpenaStepFile(const std::u16string& sAltStepFile);
  void SaveStepFileAs();
  void saveUnderStepExtension(const std::u16string& path);
  void ApplyOpenDefaults();
  void editAffixes(int index);
  void editStoredTexts(std::uint8_t kind, forms::TextBox& target);

  ListFields fields_;
  StepFileList stepFiles_;
  Panels panels_;
  forms::ControlArray<forms::ComboBox, 2> cboPreSuf{*this, "cboPreSuf"};
  std::array<AffixFile<forms::ComboBox>, 2> affixFiles_;
  /// Enabled only while there is a list to make.
  std::array<forms::Control*, 6> actions_;
  forms::TextBox& txtPreview = control<forms::TextBox>("txtPreview");

  std::int16_t lwStepStart_ = 0;
  bool lwMenuMode_ = false;
  bool insertCopies_ = false;
  bool lwSelectionMade_ = false;
  std::u16string lwOutputString_;
};

extern const forms::WindowDesign frmListwrightDesign;

}  // namespace kvrnstep::dialogs
