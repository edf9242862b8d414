#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "dialogs/dialog.h"
#include "stepfiles/stored_texts.h"

namespace kvrnstep::dialogs {

/// The editor of the stored beginnings or endings: fifteen slots, each with a picture that applies
/// its text. Set DoBegEnd, showModal(), then read IsBEBapplied. The texts are saved however the
/// editor is closed.
class frmStepBE : public Dialog {
 public:
  frmStepBE(forms::Toolkit& toolkit, const plugin::HostContext& host);

  /// 0 edits the beginnings, anything else the endings.
  void DoBegEnd(std::uint8_t vDBEValue) { doBegEnd_ = vDBEValue; }
  [[nodiscard]] std::uint8_t DoBegEnd() const { return doBegEnd_; }
  /// The applied text; empty when none was.
  void IsBEBapplied(std::u16string vBEBValue) { isBEBapplied_ = std::move(vBEBValue); }
  [[nodiscard]] const std::u16string& IsBEBapplied() const { return isBEBapplied_; }

 private:
  void Form_Load();
  void Form_QueryUnload();
  void Form_Resize();
  void txtHold_Change(int Index);
  void imgBE_Click(int Index);
  void cmdOK_Click();

  void LoadOrSaveSlots(bool bolSave, const std::u16string& sFile);
  [[nodiscard]] std::u16string storageFile() const;
  void keepMinimumSize();
  void layOutSlot(int slot, double width, double height);

  forms::ControlArray<forms::TextBox, stepfiles::kStoredTexts> txtHold{*this, "txtHold"};
  forms::ControlArray<forms::Control, stepfiles::kStoredTexts> imgBE{*this, "imgBE"};
  std::uint8_t doBegEnd_ = 0;
  std::u16string isBEBapplied_;
  bool storageRead_ = false;  ///< the slots show what the file holds
};

extern const forms::WindowDesign frmStepBEDesign;

}  // namespace kvrnstep::dialogs
