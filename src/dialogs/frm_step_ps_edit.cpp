#include "dialogs/frm_step_ps_edit.h"

#include <algorithm>

#include "dialogs/list_sort.h"
#include "dialogs/window_position.h"
#include "plugin/alert_sound.h"
#include "storage/list_file.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace kvrnstep::dialogs {

using forms::Control;
using forms::ListBox;
using forms::TextBox;

namespace {

constexpr int kDragCursor = 106;
constexpr int kHoverCursor = 107;

/// What tells the two lists apart.
struct ListKind {
  std::u16string_view file;
  std::u16string_view caption;
  std::u16string_view heading;
};
constexpr std::array<ListKind, 2> kLists{{
    {u"Prefix_Step.dat", u"Edit Step - Prefixes", u"Prefixes"},
    {u"Suffix_Step.dat", u"Edit Step - Suffixes", u"Suffixes"},
}};

}  // namespace

frmStepPSEdit::frmStepPSEdit(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Window(frmStepPSEditDesign()),
      toolkit_(toolkit),
      host_(host),
      lblDum(control<Control>("lblDum")),
      lstEdit(control<ListBox>("lstEdit")),
      txtAdd(control<TextBox>("txtAdd")),
      lblDrag(controlArray<Control, 3>("lblDrag")),
      cmdCases(controlArray<Control, 3>("cmdCases")),
      cmdAdd(control<Control>("cmdAdd")),
      cmdSort(control<Control>("cmdSort")),
      cmdEdO(control<Control>("cmdEdO")),
      cmdDelete(control<Control>("cmdDelete")),
      cmdPatU(control<Control>("cmdPatU")),
      cmdPatD(control<Control>("cmdPatD")) {
  assignHandlers();
}

void frmStepPSEdit::assignHandlers() {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { Form_QueryUnload(); };
  txtAdd.onChange = [this](int /*index*/) { txtAdd_Change(); };
  txtAdd.onDragDrop = [this](int /*index*/, const Control& source) { txtAdd_DragDrop(source); };
  lstEdit.onClick = [this](int /*index*/) { lstEdit_Click(); };
  cmdAdd.onClick = [this](int /*index*/) { cmdAdd_Click(); };
  cmdEdO.onClick = [this](int /*index*/) { cmdEdO_Click(); };
  cmdDelete.onClick = [this](int /*index*/) { cmdDelete_Click(); };
  cmdPatU.onClick = [this](int /*index*/) { cmdPatU_Click(); };
  cmdPatD.onClick = [this](int /*index*/) { cmdPatD_Click(); };
  cmdSort.onClick = [this](int /*index*/) { cmdSort_Click(); };
  for (Control* button : cmdCases.all()) {
    button->onClick = [this](int index) { cmdCases_Click(index); };
  }
  control<Control>("cmdOK").onClick = [this](int /*index*/) { cmdOK_Click(); };
  control<Control>("cmdCancel").onClick = [this](int /*index*/) { unload(); };
}

std::optional<std::u16string> frmStepPSEdit::listFile() const {
  if (PivitWhat >= kLists.size()) return std::nullopt;
  return text::inFolder(host_.sPthStepFolder, kLists.at(PivitWhat).file);
}

void frmStepPSEdit::Form_Load() {
  for (Control* label : lblDrag.all()) {
    label->setDragCursor(kDragCursor);
    label->setCursor(kHoverCursor);
  }
  if (const auto file = listFile()) {
    setCaption(kLists.at(PivitWhat).caption);
    lblDum.setCaption(kLists.at(PivitWhat).heading);
    listWhole_ = storage::LoadSaveListFile(lstEdit, false, *file);
  }
  enableSort();
  restorePosition(*this, toolkit_, host_, u"StepPSEdit_LT", u"StepPSEdit_TT");
}

void frmStepPSEdit::Form_QueryUnload() {
  for (Control* label : lblDrag.all()) {
    label->setDragCursor(0);
    label->setCursor(0);
  }
  lstEdit.Clear();
  savePosition(*this, host_, u"StepPSEdit_LT", u"StepPSEdit_TT");
}

void frmStepPSEdit::cmdOK_Click() {
  // What the list does not show, for it could not be read or is too much, must not be lost.
  const auto file = listFile();
  if (file && listWhole_) storage::LoadSaveListFile(lstEdit, true, *file);
  unload();
}

void frmStepPSEdit::txtAdd_Change() {
  cmdAdd.setEnabled(!txtAdd.text().empty());
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
  for (Control* button : {&cmdEdO, &cmdDelete, &cmdPatU, &cmdPatD}) button->setEnabled(enabled);
}

void frmStepPSEdit::enableSort() {
  cmdSort.setEnabled(lstEdit.ListCount() > 0);
}

void frmStepPSEdit::playFinishSound() {
  plugin::PlayAlertSound(toolkit_, host_, host_.swavFinishQ, 0);
}

}  // namespace kvrnstep::dialogs
