#include "dialogs/frm_listwright.h"

namespace kvrnstep::dialogs {

using forms::CheckBox;
using forms::ComboBox;
using forms::Control;
using forms::MenuEntry;
using forms::MouseButton;
using forms::OptionButton;
using forms::Spinner;
using forms::TextBox;

namespace {

/// Numeric boxes take digits and Backspace; everything else that types a character is discarded.
bool isDigitOrBackspace(char16_t character) {
  constexpr char16_t kBackspace = 8;
  return (character >= u'0' && character <= u'9') || character == kBackspace;
}

}  // namespace

frmListwright::frmListwright(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Window(frmListwrightDesign()),
      toolkit_(toolkit),
      host_(host),
      fraStep(control<Control>("fraStep")),
      cmdCIC(controlArray<Control, 6>("cmdCIC")),
      chkLWO(controlArray<CheckBox, kListOptions.size()>("chkLWO")),
      txtBStart(control<TextBox>("txtBStart")),
      updBStart(control<Spinner>("updBStart")),
      txtBEndAt(control<TextBox>("txtBEndAt")),
      updBEndAt(control<Spinner>("updBEndAt")),
      txtLS(control<TextBox>("txtLS")),
      updLS(control<Spinner>("updLS")),
      cboPreSuf(controlArray<ComboBox, 2>("cboPreSuf")),
      txtBegin(control<TextBox>("txtBegin")),
      txtEnd(control<TextBox>("txtEnd")),
      optNA(controlArray<OptionButton, kListingTypes.size()>("optNA")),
      imgBull(controlArray<Control, kListingTypes.size()>("imgBull")),
      lblD(controlArray<Control, 7>("lblD")),
      txtPreview(control<TextBox>("txtPreview")),
      lstStepf(control<forms::ListBox>("lstStepf")),
      mnuFiles(controlArray<MenuEntry, 6>("mnuFiles")),
      mnuEdits(controlArray<MenuEntry, 5>("mnuEdits")),
      mnuOptions(controlArray<MenuEntry, 6>("mnuOptions")),
      mnuActions(controlArray<MenuEntry, 3>("mnuActions")),
      mnuHid(control<MenuEntry>("mnuHid")),
      mnuHidd(controlArray<MenuEntry, 3>("mnuHidd")) {
  assignHandlers();
}

void frmListwright::assignHandlers() {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { Form_QueryUnload(); };

  for (auto* element : cmdCIC.all()) {
    element->onClick = [this](int index) { cmdCIC_Click(index); };
  }
  for (auto* element : chkLWO.all()) {
    element->onClick = [this](int index) { chkLWO_Click(index); };
  }
  for (auto* element : optNA.all()) {
    element->onClick = [this](int index) { optNA_Click(index); };
  }
  for (ComboBox* box : cboPreSuf.all()) {
    box->onClick = [this](int /*index*/) { cboPreSuf_Click(); };
    box->onKeyUp = [this](int /*index*/) { cboPreSuf_KeyUp(); };
  }
  txtBegin.onChange = [this](int /*index*/) { txtBegin_Change(); };
  txtEnd.onChange = [this](int /*index*/) { txtEnd_Change(); };

  for (TextBox* box : {&txtBStart, &txtBEndAt, &txtLS}) {
    box->onKeyPress = [](int /*index*/, char16_t key) { return isDigitOrBackspace(key); };
  }
  txtBStart.onChange = [this](int /*index*/) { txtBStart_Change(); };
  txtBEndAt.onChange = [this](int /*index*/) { txtBEndAt_Change(); };
  txtLS.onChange = [this](int /*index*/) { txtLS_Change(); };
  for (TextBox* box : {&txtBStart, &txtBEndAt}) {
    box->onKeyUp = [this](int /*index*/) {
      SetActionsEnabled(startAndEndValid());
      RefreshPreview();
    };
  }
  txtLS.onKeyUp = [this](int /*index*/) {
    SetActionsEnabled(lineSpacingValid());
    RefreshPreview();
  };
  for (Spinner* spinner : {&updBStart, &updBEndAt, &updLS}) {
    spinner->onUpClick = [this](int /*index*/) { RefreshPreview(); };
    spinner->onDownClick = spinner->onUpClick;
    spinner->onMouseUp = [this, spinner](int /*index*/, MouseButton button) {
      if (button != MouseButton::Right) return;
      AskSpinnerValue(*spinner, spinner->row().minimum, spinner->row().maximum, u"");
      RefreshPreview();
    };
  }

  lstStepf.onDblClick = [this](int /*index*/) { lstStepf_DblClick(); };
  lstStepf.onMouseUp = [this](int /*index*/, MouseButton button) { lstStepf_MouseUp(button); };
  for (auto* element : mnuHidd.all()) {
    element->onClick = [this](int index) { mnuHidd_Click(index); };
  }
  for (auto* element : mnuFiles.all()) {
    element->onClick = [this](int index) { mnuFiles_Click(index); };
  }
  for (auto* element : mnuEdits.all()) {
    element->onClick = [this](int index) { mnuEdits_Click(index); };
  }
  for (auto* element : lblD.all()) {
    element->onMouseUp = [this](int index, MouseButton /*button*/) { lblD_MouseUp(index); };
  }
  for (auto* element : mnuOptions.all()) {
    element->onClick = [this](int index) { mnuOptions_Click(index); };
  }
  for (auto* element : mnuActions.all()) {
    element->onClick = [this](int index) { mnuActions_Click(index); };
  }
}

void frmListwright::optNA_Click(int index) {
  iListType = static_cast<std::int16_t>(index);
  for (Control* picture : imgBull.all()) picture->setVisible(picture->index() == index);
  for (CheckBox* box : chkLWO.all()) {
    const auto& option = kListOptions.at(static_cast<std::size_t>(box->index()));
    if (option.types != kEveryType) box->setEnabled(appliesTo(option, index));
  }
  RefreshPreview();
}

void frmListwright::chkLWO_Click(int index) {
  if (index == generator::Indentation) {
    chkLWO(generator::IndentSpacing).setEnabled(chkLWO(generator::Indentation).value() != 0);
  }
  RefreshPreview();
}

void frmListwright::SetActionsEnabled(bool bolEnable) {
  cmdCIC(0).setEnabled(bolEnable);
  cmdCIC(2).setEnabled(bolEnable);
  mnuActions(0).setEnabled(bolEnable);
  mnuActions(2).setEnabled(bolEnable);
  mnuFiles(1).setEnabled(bolEnable);
  mnuFiles(3).setEnabled(bolEnable);
  const bool previewShown = fraStep.place().left > 4;
  for (int panelButton = 3; panelButton <= 5; ++panelButton) {
    cmdCIC(panelButton).setEnabled(previewShown && bolEnable);
  }
}

void frmListwright::selectType(std::int16_t type) {
  for (OptionButton* button : optNA.all()) {
    if (button->index() == type) button->setValue(true);
  }
}

}  // namespace kvrnstep::dialogs
