#include "dialogs/panels.h"

#include <utility>

namespace kvrnstep::dialogs {

namespace {

// Widths and heights of the dialog are in twips, left edges of controls in pixels.
constexpr double kNarrow = 4170;
constexpr double kWide = 8220;
constexpr double kLow = 5280;
constexpr double kHigh = 6855;
constexpr double kPanelLeft = 4;
constexpr double kFrameAlone = 2;
constexpr double kFrameBesidePreview = 275;
constexpr double kOutOfView = -10000;

}  // namespace

Panels::Panels(Dialog& dialog, std::function<void()> refresh)
    : dialog_(dialog), RefreshPreview(std::move(refresh)) {}

std::u16string Panels::display() const {
  std::u16string display;
  if (files_.checked()) display += u"Files";
  if (preview_.checked()) display += u"Preview";
  return display;
}

void Panels::restore(std::u16string_view display) {
  const bool both = display == u"FilesPreview";
  if (both || display == u"Files") toggleFiles();
  if (both || display == u"Preview") togglePreview();
}

void Panels::toggleFiles() {
  lstStepf.setIndex(-1);
  toggle(files_);
}

void Panels::togglePreview() {
  toggle(preview_);
}

void Panels::toggle(forms::MenuEntry& entry) {
  entry.setChecked(!entry.checked());
  layOut();
  dialog_.centre();
}

void Panels::layOut() {
  const bool files = files_.checked();
  const bool preview = preview_.checked();
  bolPanelShown = files || preview;
  dialog_.setHeight(files ? kHigh : kLow);
  dialog_.setWidth(preview ? kWide : kNarrow);
  fraStep.setLeft(preview ? kFrameBesidePreview : kFrameAlone);
  txtPreview.setLeft(preview ? kPanelLeft : kOutOfView);
  lstStepf.setEnabled(files);
  lstStepf.setWidth(dialog_.innerWidth() - 2 * kPanelLeft);
  showButtons(bolPanelShown);
  if (preview) RefreshPreview();
}

void Panels::showButtons(bool shown) {
  for (forms::Control* button : buttons_) {
    button->setVisible(shown);
    button->setEnabled(shown);
  }
}

void Panels::enableButtons(bool enabled) {
  for (forms::Control* button : buttons_) button->setEnabled(enabled && preview_.checked());
}

}  // namespace kvrnstep::dialogs
