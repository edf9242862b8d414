#include "dialogs/frm_listwright.h"
#include "generator/generator.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::dialogs {

namespace {

std::int16_t int16OrZero(std::optional<double> number) {
  return number ? text::roundToInt16(*number).value_or(0) : std::int16_t{0};
}

}  // namespace

generator::ListSettings frmListwright::readSettings() const {
  generator::ListSettings settings;
  settings.Selection = iListType;
  for (const forms::CheckBox* box : chkLWO.all()) {
    settings.Option.at(static_cast<std::size_t>(box->index())) = box->checked() ? 1 : 0;
  }
  settings.Prefix = cboPreSuf(0).text();
  settings.Suffix = cboPreSuf(1).text();
  const bool startGiven = !text::trimBlanks(txtBStart.text()).empty();
  settings.Start =
      startGiven ? int16OrZero(text::leadingNumber(txtBStart.text())) : std::int16_t{1};
  settings.Count = iStepCount;
  settings.LineSpacing = int16OrZero(text::leadingNumber(txtLS.text()));
  settings.Beginning = txtBegin.text();
  settings.Ending = txtEnd.text();
  return settings;
}

void frmListwright::takeCountFromEndBox() {
  iStepCount = 0;
  const auto typed = text::trimBlanks(txtBEndAt.text());
  if (typed.empty()) return;
  iStepCount = int16OrZero(text::wholeTextNumber(typed));
  txtBEndAt.setText(u"");
}

void frmListwright::writeCountToEndBox() {
  txtBEndAt.setText(text::decimal(iStepCount));
}

void frmListwright::BuildStepList() {
  if (iStepCount == 0) {
    toolkit_.showMessage({forms::MessageIcon::Information, u"How many?",
                          u"You must enter a maximum count.\n\n1 to 99"});
    lwSelectionMade_ = false;
    return;
  }
  lwOutputString_ = generator::generateList(readSettings(), host_.bytSpcCount);
}

void frmListwright::RefreshPreview() {
  if (!bolPanelShown) return;
  const std::u16string typed = txtBEndAt.text();
  const forms::TextSelection caret = txtBEndAt.selection();
  takeCountFromEndBox();
  BuildStepList();
  // With the step files alone the options frame has the preview's place.
  if (mnuOptions(kDisplayPreview).checked()) txtPreview.setLeft(kPanelLeft);
  txtPreview.setText(lwOutputString_);
  lwOutputString_.clear();
  writeCountToEndBox();
  if (txtBEndAt.text() == typed) txtBEndAt.setSelection(caret);
}

void frmListwright::cmdCIC_Click(int index) {
  enum Action { Insert = 0, Cancel = 1, Copy = 2, SaveAs = 3, Open = 5 };
  switch (index) {
    case Insert:
      insertList();
      if (insertCopies_ && lwSelectionMade_) toolkit_.setClipboard(lwOutputString_);
      break;
    case Cancel:
      lwSelectionMade_ = false;
      lwOutputString_.clear();
      break;
    case Copy:
      copyList();
      break;
    case SaveAs:
      SaveStepFileAs();
      return;
    case kPrint:
      printList();
      return;
    case Open:
      if (bolPanelShown) OpenaStepFile(u"");
      return;
    default:
      return;
  }
  unload();
}

void frmListwright::insertList() {
  lwSelectionMade_ = true;
  takeCountFromEndBox();
  BuildStepList();
}

void frmListwright::copyList() {
  insertList();
  lwSelectionMade_ = false;
  toolkit_.setClipboard(lwOutputString_);
  lwOutputString_.clear();
}

void frmListwright::printList() {
  insertList();
  lwSelectionMade_ = false;
  PrintStepList(lwOutputString_);
  lwOutputString_.clear();
  writeCountToEndBox();
}

}  // namespace kvrnstep::dialogs
