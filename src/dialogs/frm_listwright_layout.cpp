#include "dialogs/frm_listwright.h"
#include "dialogs/window_position.h"

namespace kvrnstep::dialogs {

namespace {

// Widths and heights of the dialog are in twips, left edges of controls in pixels.
constexpr double kNarrow = 4170;
constexpr double kWide = 8220;
constexpr double kLow = 5280;
constexpr double kHigh = 6855;
constexpr double kFrameAlone = 2;
constexpr double kFrameBesidePreview = 275;
constexpr double kOutOfView = -10000;

}  // namespace

void frmListwright::toggleDisplay(forms::MenuEntry& item) {
  item.setChecked(!item.checked());
  layOut();
}

void frmListwright::layOut() {
  const bool files = mnuOptions(kDisplayStepFiles).checked();
  const bool preview = mnuOptions(kDisplayPreview).checked();
  layOutStepFiles(files);
  layOutPreview(preview);
  if (!files && !preview) layOutCompact();
  centre();
  lstStepf.setWidth(innerWidth() - 2 * kPanelLeft);
}

void frmListwright::layOutStepFiles(bool shown) {
  lstStepf.setEnabled(shown);
  if (!shown) {
    setHeight(kLow);
    return;
  }
  bolPanelShown = true;
  lstStepf.setLeft(kPanelLeft);
  setHeight(kHigh);
  showPanelButtons(true);
  fraStep.setLeft(kFrameBesidePreview);
  setWidth(kWide);
}

void frmListwright::layOutPreview(bool shown) {
  if (!shown) {
    txtPreview.setLeft(kOutOfView);
    fraStep.setLeft(kFrameAlone);
    setWidth(kNarrow);
    return;
  }
  bolPanelShown = true;
  txtPreview.setLeft(kPanelLeft);
  showPanelButtons(true);
  fraStep.setLeft(kFrameBesidePreview);
  setWidth(kWide);
  RefreshPreview();
}

void frmListwright::layOutCompact() {
  bolPanelShown = false;
  showPanelButtons(false);
}

void frmListwright::showPanelButtons(bool shown) {
  for (int panelButton = 3; panelButton <= 5; ++panelButton) {
    cmdCIC(panelButton).setVisible(shown);
    cmdCIC(panelButton).setEnabled(shown);
  }
  if (shown) cmdCIC(5).setCaption(u"&Open...");
}

void frmListwright::centre() {
  const forms::Rect middle = centred(place(), toolkit_);
  setTop(middle.top);
  setLeft(middle.left);
}

}  // namespace kvrnstep::dialogs
