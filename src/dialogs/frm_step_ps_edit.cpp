#include "dialogs/frm_step_ps_edit.h"

#include <algorithm>

#include "dialogs/list_sort.h"
#include "plugin/alert_sound.h"
#include "text/letter_case.h"

namespace kvrnstep::dialogs {

using forms::Control;

frmStepPSEdit::frmStepPSEdit(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Dialog(frmStepPSEditDesign, toolkit, host, u"StepPSEdit") {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { saveKeys(); };
  txtAdd.onChange = [this](int /*index*/) {
    control<Control>("cmdAdd").setEnabled(!txtAdd.text().empty());
  };
  txtAdd.onDragDrop = [this](int /*index*/, const Control& source) {
    if (source.row().name == "lblDrag") txtAdd.replaceSelection(source.caption());
  };
  onClick("lstEdit", [this](int /*index*/) { enableSelectionButtons(entrySelected()); });
  onClick("cmdAdd", [this](int /*index*/) { cmdAdd_Click(); });
  onClick("cmdEdO", [this](int /*index*/) { cmdEdO_Click(); });
  onClick("cmdDelete", [this](int /*index*/) { cmdDelete_Click(); });
  onClick("cmdPatU", [this](int /*index*/) { moveSelected(-1); });
  onClick("cmdPatD", [this](int /*index*/) { moveSelected(1); });
  onClick("cmdSort", [this](int /*index*/) { cmdSort_Click(); });
  onClick("cmdCases", [this](int index) { cmdCases_Click(index); });
  onClick("cmdOK", [this](int /*index*/) { cmdOK_Click(); });
  onClick("cmdCancel", [this](int /*index*/) { unload(); });
}

void frmStepPSEdit::Form_Load() {
  if (PivitWhat < kAffixKinds.size()) {
    const AffixKind& kind = kAffixKinds.at(PivitWhat);
    setCaption(kind.caption);
    control<Control>("lblDum").setCaption(kind.heading);
    file_.emplace(host(), kind, lstEdit).load();
  }
  enableSort();
  restorePlace();
}

void frmStepPSEdit::cmdOK_Click() {
  if (file_) file_->save();
  unload();
}

int frmStepPSEdit::findExact(const std::u16string& text) const {
  if (const auto found = findEntry(lstEdit, text)) return *found;
  const auto& entries = lstEdit.entries().items;
  const auto found = std::ranges::find_if(
      entries, [&](const std::u16string& entry) { return text::equalIgnoringCase(entry, text); });
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

/// Selects an entry and scrolls so that the one above it is the first visible one.
void frmStepPSEdit::showEntry(int index) {
  lstEdit.setIndex(index);
  lstEdit.setTopIndex(index - 1);
}

void frmStepPSEdit::cmdAdd_Click() {
  const std::u16string text = txtAdd.text();
  if (const int duplicate = findExact(text); duplicate >= 0) {
    showEntry(duplicate);
    playFinishSound();
  } else {
    lstEdit.AddItem(text);
    showEntry(findExact(text));
    txtAdd.setText(u"");
  }
  setFocus(txtAdd);
}

void frmStepPSEdit::cmdEdO_Click() {
  if (!entrySelected()) return;
  txtAdd.setText(lstEdit.List(selected()));
  lstEdit.RemoveItem(selected());
  enableSelectionButtons(false);
  enableSort();
}

void frmStepPSEdit::cmdDelete_Click() {
  if (!entrySelected()) return;
  const int removed = selected();
  lstEdit.RemoveItem(removed);
  // The entry that has moved up to this place, or the last entry.
  lstEdit.setIndex(std::min(removed, lstEdit.ListCount() - 1));
  if (!entrySelected()) enableSelectionButtons(false);
  enableSort();
}

void frmStepPSEdit::moveSelected(int by) {
  const int from = selected();
  const int to = from + by;
  if (from < 0 || to < 0 || to >= lstEdit.ListCount()) return;
  const bool up = by < 0;
  lstEdit.InsertItem(up ? to : to + 1, lstEdit.List(from));
  lstEdit.RemoveItem(up ? from + 1 : from);
  lstEdit.setIndex(to);
}

void frmStepPSEdit::cmdSort_Click() {
  if (lstEdit.ListCount() > 0) {
    enableSelectionButtons(false);
    SortList(lstEdit);
  }
  playFinishSound();
}

void frmStepPSEdit::cmdCases_Click(int Index) {
  constexpr std::array kConversions{text::properCase, text::lowerCase, text::upperCase};
  txtAdd.setText(kConversions.at(static_cast<std::size_t>(Index))(txtAdd.text()));
  setFocus(txtAdd);
}

void frmStepPSEdit::enableSelectionButtons(bool enabled) {
  for (const auto* name : {"cmdEdO", "cmdDelete", "cmdPatU", "cmdPatD"}) {
    control<Control>(name).setEnabled(enabled);
  }
}

void frmStepPSEdit::enableSort() {
  control<Control>("cmdSort").setEnabled(lstEdit.ListCount() > 0);
}

void frmStepPSEdit::playFinishSound() {
  plugin::PlayAlertSound(toolkit(), host(), host().swavFinishQ, 0);
}

}  // namespace kvrnstep::dialogs
