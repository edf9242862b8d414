#include "dialogs/frm_step_ps_edit.h"

#include <algorithm>

#include "dialogs/host_settings.h"
#include "dialogs/list_sort.h"
#include "plugin/alert_sound.h"
#include "text/letter_case.h"

namespace kvrnstep::dialogs {

using forms::Control;

namespace {

constexpr int kDragCursor = 106;
constexpr int kHoverCursor = 107;
constexpr std::u16string_view kPositionKeys = u"StepPSEdit";

}  // namespace

frmStepPSEdit::frmStepPSEdit(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Window(frmStepPSEditDesign()), toolkit_(toolkit), host_(host) {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { Form_QueryUnload(); };
  txtAdd.onChange = [this](int /*index*/) { txtAdd_Change(); };
  txtAdd.onDragDrop = [this](int /*index*/, const Control& source) { txtAdd_DragDrop(source); };
  onClick("lstEdit", [this](int /*index*/) { lstEdit_Click(); });
  onClick("cmdAdd", [this](int /*index*/) { cmdAdd_Click(); });
  onClick("cmdEdO", [this](int /*index*/) { cmdEdO_Click(); });
  onClick("cmdDelete", [this](int /*index*/) { cmdDelete_Click(); });
  onClick("cmdPatU", [this](int /*index*/) { cmdPatU_Click(); });
  onClick("cmdPatD", [this](int /*index*/) { cmdPatD_Click(); });
  onClick("cmdSort", [this](int /*index*/) { cmdSort_Click(); });
  onClick("cmdCases", [this](int index) { cmdCases_Click(index); });
  onClick("cmdOK", [this](int /*index*/) { cmdOK_Click(); });
  onClick("cmdCancel", [this](int /*index*/) { unload(); });
}

void frmStepPSEdit::Form_Load() {
  for (Control* label : lblDrag.all()) {
    label->setDragCursor(kDragCursor);
    label->setCursor(kHoverCursor);
  }
  if (PivitWhat < kAffixKinds.size()) {
    const AffixKind& kind = kAffixKinds.at(PivitWhat);
    setCaption(kind.caption);
    control<Control>("lblDum").setCaption(kind.heading);
    file_.emplace(host_, kind).load(lstEdit);
  }
  enableSort();
  restorePosition(*this, toolkit_, host_, kPositionKeys);
}

void frmStepPSEdit::Form_QueryUnload() {
  for (Control* label : lblDrag.all()) {
    label->setDragCursor(0);
    label->setCursor(0);
  }
  lstEdit.Clear();
  savePosition(*this, host_, kPositionKeys);
}

void frmStepPSEdit::cmdOK_Click() {
  if (file_) file_->save(lstEdit);
  unload();
}

void frmStepPSEdit::txtAdd_Change() {
  control<Control>("cmdAdd").setEnabled(!txtAdd.text().empty());
}

void frmStepPSEdit::txtAdd_DragDrop(const Control& Source) {
  if (Source.row().name == "lblDrag") txtAdd.replaceSelection(Source.caption());
}

void frmStepPSEdit::lstEdit_Click() {
  enableSelectionButtons(entrySelected());
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
  // The entry that moved up, or the new last one.
  lstEdit.setIndex(std::min(removed, lstEdit.ListCount() - 1));
  if (!entrySelected()) enableSelectionButtons(false);
  enableSort();
}

void frmStepPSEdit::cmdPatU_Click() {
  const int moved = selected();
  if (moved <= 0) return;
  lstEdit.InsertItem(moved - 1, lstEdit.List(moved));
  lstEdit.RemoveItem(moved + 1);
  lstEdit.setIndex(moved - 1);
}

void frmStepPSEdit::cmdPatD_Click() {
  const int moved = selected();
  if (moved < 0 || moved == lstEdit.ListCount() - 1) return;
  lstEdit.InsertItem(moved + 2, lstEdit.List(moved));
  lstEdit.RemoveItem(moved);
  lstEdit.setIndex(moved + 1);
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
  plugin::PlayAlertSound(toolkit_, host_, host_.swavFinishQ, 0);
}

}  // namespace kvrnstep::dialogs
