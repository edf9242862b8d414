#include "dialogs/frm_step_be.h"

#include <algorithm>
#include <array>

#include "text/paths.h"

namespace kvrnstep::dialogs {

using forms::Control;
using forms::Rect;
using forms::TextBox;

namespace {

constexpr int kRows = 5;

/// Places as shares of the inner width and height.
constexpr Rect kOkButton{0.427, 0.898, 0.146, 0.091};
constexpr std::array kColumns{0.000, 0.349, 0.697};
constexpr std::array kRowTops{0.004, 0.170, 0.336, 0.502, 0.668};
constexpr double kSlotWidth = 0.219;
constexpr double kSlotHeight = 0.158;
constexpr std::array kPictureColumns{0.235, 0.584, 0.932};

}  // namespace

frmStepBE::frmStepBE(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Dialog(frmStepBEDesign, toolkit, host, u"StepBE") {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { Form_QueryUnload(); };
  onResize = [this] { Form_Resize(); };
  for (TextBox* box : txtHold.all()) {
    box->onChange = [this](int index) { txtHold_Change(index); };
  }
  onClick("imgBE", [this](int index) { imgBE_Click(index); });
  onClick("cmdOK", [this](int /*index*/) { cmdOK_Click(); });
}

void frmStepBE::Form_Load() {
  IsBEBapplied(u"");
  setCaption(DoBegEnd() == 0 ? u"Beginning (Storage)" : u"Ending (Storage)");
  LoadOrSaveSlots(false, storageFile());
  Form_Resize();
  restorePlace();
}

void frmStepBE::Form_QueryUnload() {
  LoadOrSaveSlots(true, storageFile());
  saveKeys();
}

std::u16string frmStepBE::storageFile() const {
  return text::inFolder(host().sPthStepFolder, stepfiles::storedTextsFile(DoBegEnd() != 0));
}

void frmStepBE::LoadOrSaveSlots(bool bolSave, const std::u16string& sFile) {
  if (!bolSave) {
    const auto texts = stepfiles::readStoredTexts(sFile);
    storageRead_ = texts.has_value();
    if (!texts) return;
    int slot = 0;
    for (const std::u16string& text : *texts) txtHold(slot++).setText(text);
    return;
  }
  stepfiles::StoredTexts texts;
  std::ranges::transform(txtHold.all(), texts.begin(), &TextBox::text);
  // A file that could not be read must not be replaced by empty slots.
  if (storageRead_) stepfiles::writeStoredTexts(sFile, texts);
}

void frmStepBE::txtHold_Change(int Index) {
  const bool holdsText = !txtHold(Index).text().empty();
  imgBE(Index).setPicture(holdsText ? "apply-active" : "apply-inactive");
  imgBE(Index).setEnabled(holdsText);
}

void frmStepBE::imgBE_Click(int Index) {
  IsBEBapplied(txtHold(Index).text());
  unload();
}

void frmStepBE::cmdOK_Click() {
  unload();
}

void frmStepBE::Form_Resize() {
  if (!minimized()) keepMinimumSize();
  const double width = innerWidth();
  const double height = innerHeight();
  control<Control>("cmdOK").setPlace({kOkButton.left * width, kOkButton.top * height,
                                      kOkButton.width * width, kOkButton.height * height});
  for (int slot = 0; slot < decltype(txtHold)::size(); ++slot) layOutSlot(slot, width, height);
}

void frmStepBE::keepMinimumSize() {
  // Each of them raises onResize again.
  if (place().height < design().minimumHeight) setHeight(design().minimumHeight);
  if (place().width < design().minimumWidth) setWidth(design().minimumWidth);
}

void frmStepBE::layOutSlot(int slot, double width, double height) {
  const auto column = static_cast<std::size_t>(slot / kRows);
  const auto row = static_cast<std::size_t>(slot % kRows);
  const Rect box{kColumns.at(column) * width, kRowTops.at(row) * height, kSlotWidth * width,
                 kSlotHeight * height};
  txtHold(slot).setPlace(box);
  const Rect& image = imgBE(slot).place();
  imgBE(slot).setPlace({kPictureColumns.at(column) * width,
                        box.top + box.height / 2 - image.height / 2, image.width, image.height});
}

}  // namespace kvrnstep::dialogs
