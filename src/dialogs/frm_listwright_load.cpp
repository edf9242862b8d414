#include "dialogs/frm_listwright.h"
#include "dialogs/window_position.h"
#include "stepfiles/open_defaults.h"
#include "storage/list_file.h"
#include "storage/settings_store.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace kvrnstep::dialogs {

namespace {

constexpr int kLinkCursor = 104;
constexpr std::u16string_view kLeftKey = u"Listwright_LT";
constexpr std::u16string_view kTopKey = u"Listwright_TT";
constexpr std::array kClickableLabels{0, 1, 4, 5};
constexpr std::array<std::u16string_view, 2> kAffixFiles{u"Prefix_Step.dat", u"Suffix_Step.dat"};

}  // namespace

std::u16string frmListwright::readKey(std::u16string_view key, std::u16string_view fallback) const {
  return modSecns::ReadIniKey(host_.SEC_APP_NAME, key, fallback, host_.s_IniPathAndName);
}

void frmListwright::writeKey(std::u16string_view key, std::u16string_view value) const {
  modSecns::WriteIniKey(host_.SEC_APP_NAME, key, value, host_.s_IniPathAndName);
}

std::u16string frmListwright::stepFolderPath(std::u16string_view name) const {
  return text::inFolder(host_.sPthStepFolder, name);
}

void frmListwright::Form_Load() {
  adoptEditorLook();
  for (const int label : kClickableLabels) lblD(label).setCursor(kLinkCursor);
  for (const forms::ComboBox* box : cboPreSuf.all()) loadAffixes(box->index());
  cboPreSuf(1).setText(readKey(u"Suffix", u"."));
  selectType(LwStepStart());
  if (stepfiles::openDefaultsOn(openDefaultsPlace())) ApplyOpenDefaults();
  if (startAndEndValid()) SetActionsEnabled(true);
  restoreDisplay();
  FillStepFileList();
  restorePosition(*this, toolkit_, host_, kLeftKey, kTopKey);
}

void frmListwright::adoptEditorLook() {
  txtPreview.setFont(host_.s_EditorFont);
  if (host_.i_EditorSize > 0) {
    const double size = toolkit_.fontSize(host_.s_EditorFont, host_.i_EditorSize);
    txtPreview.setFontSize(static_cast<float>(size));
  }
  txtPreview.setBackColor(host_.l_EditorBColor);
  txtPreview.setForeColor(host_.l_EditorFColor);
}

void frmListwright::loadAffixes(int index) {
  const auto i = static_cast<std::size_t>(index);
  affixesWhole_.at(i) =
      storage::LoadSaveListFile(cboPreSuf(index), false, stepFolderPath(kAffixFiles.at(i)));
}

void frmListwright::saveAffixes() {
  for (std::size_t i = 0; i < kAffixFiles.size(); ++i) {
    // What the list does not show, for it could not be read or is too much, must not be lost.
    if (!affixesWhole_.at(i)) continue;
    storage::LoadSaveListFile(cboPreSuf(static_cast<int>(i)), true,
                              stepFolderPath(kAffixFiles.at(i)));
  }
}

void frmListwright::restoreDisplay() {
  const std::u16string display = readKey(u"Display", u"");
  if (display == u"Files" || display == u"FilesPreview") mnuOptions_Click(kDisplayStepFiles);
  if (display == u"Preview" || display == u"FilesPreview") mnuOptions_Click(kDisplayPreview);
}

void frmListwright::Form_QueryUnload() {
  saveDisplay();
  writeKey(u"EditorFont", txtPreview.font());
  writeKey(u"EditorSize", text::decimal(txtPreview.fontSize()));
  writeKey(u"SpcCount", text::decimal(std::int64_t{host_.bytSpcCount}));
  saveAffixes();
  for (const int label : kClickableLabels) lblD(label).setCursor(0);
  lstStepf.Clear();
  for (forms::ComboBox* box : cboPreSuf.all()) box->Clear();
  savePosition(*this, host_, kLeftKey, kTopKey);
}

void frmListwright::saveDisplay() {
  std::u16string display;
  if (mnuOptions(kDisplayStepFiles).checked()) display += u"Files";
  if (mnuOptions(kDisplayPreview).checked()) display += u"Preview";
  writeKey(u"Display", display);
}

}  // namespace kvrnstep::dialogs
