#include "dialogs/frm_listwright.h"
#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"
#include "text/numbers.h"

// How the dialog opens and closes, and what it opens.
namespace kvrnstep::dialogs {

void frmListwright::Form_Load() {
  adoptEditorLook();
  for (auto& file : affixFiles_) file.load();
  cboPreSuf(1).setText(readKey(u"Suffix", u"."));
  fields_.selectType(LwStepStart());
  if (openDefaultsOn(openDefaultsPlace())) ApplyOpenDefaults();
  if (fields_.numbers().startAndEndValid()) SetActionsEnabled(true);
  panels_.restore(readKey(u"Display", u""));
  stepFiles_.FillStepFileList();
  restorePlace();
}

void frmListwright::adoptEditorLook() {
  txtPreview.setFont(host().s_EditorFont);
  if (host().i_EditorSize > 0) {
    const double size = toolkit().fontSize(host().s_EditorFont, host().i_EditorSize);
    txtPreview.setFontSize(static_cast<float>(size));
  }
  txtPreview.setBackColor(host().l_EditorBColor);
  txtPreview.setForeColor(host().l_EditorFColor);
}

void frmListwright::Form_QueryUnload() {
  for (auto& file : affixFiles_) file.save();
  saveKeys({{u"Display", panels_.display()},
            {u"EditorFont", txtPreview.font()},
            {u"EditorSize", text::decimal(txtPreview.fontSize())},
            {u"SpcCount", text::decimal(std::int64_t{host().bytSpcCount})}});
}

stepfiles::OpenDefaultsPlace frmListwright::openDefaultsPlace() const {
  return {host().SEC_APP_NAME, host().s_IniPathAndName, host().sPthStepFolder};
}

void frmListwright::ApplyOpenDefaults() {
  fields_.show(readOpenDefaults(openDefaultsPlace()), !lwMenuMode_);
}

void frmListwright::editAffixes(int index) {
  frmStepPSEdit editor(toolkit(), host());
  editor.PivitWhat = static_cast<std::uint8_t>(index);
  editor.showModal(toolkit());
  affixFiles_.at(static_cast<std::size_t>(index)).load();
}

void frmListwright::editStoredTexts(std::uint8_t kind, forms::TextBox& target) {
  frmStepBE editor(toolkit(), host());
  editor.DoBegEnd(kind);
  editor.showModal(toolkit());
  if (!editor.IsBEBapplied().empty()) target.setText(editor.IsBEBapplied());
}

}  // namespace kvrnstep::dialogs
