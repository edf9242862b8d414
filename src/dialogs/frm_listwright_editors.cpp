#include <array>
#include <utility>

#include "dialogs/frm_listwright.h"
#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"

namespace kvrnstep::dialogs {

namespace {

enum Entry : int { Prefixes = 0, Suffixes = 1, Beginnings = 3, Endings = 4 };

}  // namespace

void frmListwright::mnuEdits_Click(int index) {
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
  // The labels that do what an entry of the Edit menu does.
  constexpr std::array<std::pair<int, Entry>, 4> kLabels{
      {{0, Prefixes}, {1, Suffixes}, {5, Beginnings}, {4, Endings}}};
  for (const auto& [label, entry] : kLabels) {
    if (label == index) mnuEdits_Click(entry);
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
  editor.DoBegEnd(kind);
  editor.showModal(toolkit_);
  if (!editor.IsBEBapplied().empty()) target.setText(editor.IsBEBapplied());
}

}  // namespace kvrnstep::dialogs
