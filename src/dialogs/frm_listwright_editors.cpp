#include "dialogs/frm_listwright.h"
#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"

namespace kvrnstep::dialogs {

void frmListwright::mnuEdits_Click(int index) {
  enum Entry { Prefixes = 0, Suffixes = 1, Beginnings = 3, Endings = 4 };
  switch (index) {
    case Prefixes:
    case Suffixes:
      editAffixes(index);
      break;
    case Beginnings:
      editStoredTexts(0, txtBegin);
      break;
    case Endings:
      editStoredTexts(1, txtEnd);
      break;
    default:
      break;
  }
}

void frmListwright::lblD_MouseUp(int index) {
  enum Label { Prefix = 0, Suffix = 1, Ending = 4, Beginning = 5 };
  switch (index) {
    case Prefix:
    case Suffix:
      editAffixes(index);
      break;
    case Beginning:
      editStoredTexts(0, txtBegin);
      break;
    case Ending:
      editStoredTexts(1, txtEnd);
      break;
    default:
      break;
  }
}

void frmListwright::editAffixes(int index) {
  frmStepPSEdit editor(toolkit_, host_);
  std::u16string text = cboPreSuf(index).text();
  editor.PivitWhat = static_cast<std::uint8_t>(index);
  editor.showModal(toolkit_);
  loadAffixes(index);
  cboPreSuf(index).setText(std::move(text));
}

void frmListwright::editStoredTexts(std::uint8_t kind, forms::TextBox& target) {
  frmStepBE editor(toolkit_, host_);
  editor.DoBegEnd = kind;
  editor.showModal(toolkit_);
  if (!editor.IsBEBapplied.empty()) target.setText(editor.IsBEBapplied);
}

}  // namespace kvrnstep::dialogs
