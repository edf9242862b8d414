#include <algorithm>
#include <array>

#include "dialogs/frm_listwright.h"
#include "platform/files.h"
#include "plugin/alert_sound.h"
#include "stepfiles/path_part.h"
#include "stepfiles/step_file_name.h"
#include "stepfiles/step_folder.h"
#include "stepfiles/step_record.h"
#include "storage/text_file.h"
#include "text/numbers.h"

namespace kvrnstep::dialogs {

using stepfiles::PathMode;
using stepfiles::PathPart;

namespace {

/// All step files, then those of each listing type.
constexpr auto kFiltersToOpen = [] {
  std::array<forms::FileFilter, kListingTypes.size() + 1> filters{
      {{u"Step Files (*.step)", u"*.step"}}};
  std::ranges::transform(kListingTypes, filters.begin() + 1, [](const ListingTypeRow& type) {
    return forms::FileFilter{type.filter, type.filePattern};
  });
  return filters;
}();
constexpr auto kFiltersToSave = std::to_array<forms::FileFilter>({
    {u"Step Files (*.step)", u"*.step"},
    {u"Plain text file (*.txt)", u"*.txt"},
});
constexpr std::u16string_view kViolation = u"File name extension violation occurred!";

/// The setup that stands in for a file that cannot be read.
generator::ListSettings emptySettings(std::int16_t selection) {
  generator::ListSettings settings;
  settings.Selection = selection;
  settings.Start = 0;
  settings.Count = 0;
  return settings;
}

/// A path with the extension ".step" in place of another one: the plain name, or the first one
/// with a number behind it that is not in use.
std::u16string replacementPath(const std::u16string& path) {
  constexpr int kMostNumbers = 32000;
  const std::u16string base =
      PathPart(path, PathMode::FolderSeparated) + PathPart(path, PathMode::BaseName);
  std::u16string replacement = base;
  replacement += stepfiles::kStepExtension;
  for (int n = 0; storage::PathExists(replacement) && n <= kMostNumbers;) {
    replacement = base + text::decimal(++n);
    replacement += stepfiles::kStepExtension;
  }
  return replacement;
}

}  // namespace

generator::ListSettings frmListwright::settingsForFile() const {
  generator::ListSettings settings = readSettings();
  settings.LineSpacing = static_cast<std::int16_t>(updLS.value());
  settings.Start = static_cast<std::int16_t>(updBStart.value());
  settings.Count = static_cast<std::int16_t>(updBEndAt.value());
  return settings;
}

void frmListwright::OpenaStepFile(const std::u16string& sAltStepFile) {
  std::u16string path = sAltStepFile;
  if (path.empty()) {
    const auto chosen = toolkit_.ShowOpenDialog(
        {.title = u"Open", .filters = kFiltersToOpen, .name = {}, .folder = host_.sPthStepFolder});
    if (!chosen) return;
    path = *chosen;
  }
  if (!path.ends_with(stepfiles::kStepExtension)) {
    plugin::PlayAlertSound(toolkit_, host_, host_.swavAlertQ, 0);
    return;
  }
  show(stepfiles::readStepFile(path).value_or(emptySettings(iListType)));
  RefreshPreview();
  if (sAltStepFile.empty() && mnuOptions(kDisplayStepFiles).checked()) lstStepf.setIndex(-1);
}

void frmListwright::show(const generator::ListSettings& settings) {
  selectType(settings.Selection);
  txtBegin.setText(settings.Beginning);
  txtEnd.setText(settings.Ending);
  cboPreSuf(0).setText(settings.Prefix);
  cboPreSuf(1).setText(settings.Suffix);
  updLS.putValue(settings.LineSpacing);
  updBStart.putValue(settings.Start);
  updBEndAt.putValue(settings.Count);
  for (forms::CheckBox* box : chkLWO.all()) {
    box->setValue(settings.Option.at(static_cast<std::size_t>(box->index())));
  }
}

void frmListwright::SaveStepFileAs() {
  const auto path = toolkit_.ShowSaveDialog(
      {.title = u"Save As",
       .filters = kFiltersToSave,
       .name = stepfiles::fittingFileName(stepfiles::BuildStepFileName(settingsForFile())),
       .folder = host_.sPthStepFolder,
       .defaultExtension = u"step"});
  if (!path) return;
  if (path->ends_with(u"step")) {
    stepfiles::writeStepFile(*path, settingsForFile());
  } else if (PathPart(*path, PathMode::Extension) == u"txt") {
    storage::WriteTextFile(*path, txtPreview.text());
  } else {
    saveUnderStepExtension(*path);
  }
  FillStepFileList();
}

void frmListwright::saveUnderStepExtension(const std::u16string& path) {
  const std::u16string replacement = replacementPath(path);
  std::u16string text(kViolation);
  text += u"\n\n" + PathPart(path, PathMode::FileName) + u"\n\nWill be changed to:\n\n" +
          PathPart(replacement, PathMode::FileName);
  toolkit_.showMessage({forms::MessageIcon::Exclamation, std::u16string(kViolation), text});
  stepfiles::writeStepFile(replacement, settingsForFile());
}

void frmListwright::FillStepFileList() {
  lstStepf.Clear();
  for (auto& entry : stepfiles::stepFileEntries(host_.sPthStepFolder)) {
    lstStepf.AddItem(std::move(entry));
  }
}

void frmListwright::DeleteStepFile(const std::u16string& path) {
  platform::deleteFile(path);
  FillStepFileList();
}

std::u16string frmListwright::selectedStepFile() const {
  const int selected = lstStepf.entries().selected;
  if (selected < 0) return {};
  return stepfiles::pathOfEntry(host_.sPthStepFolder, lstStepf.List(selected));
}

void frmListwright::lstStepf_DblClick() {
  if (const auto path = selectedStepFile(); !path.empty()) OpenaStepFile(path);
}

void frmListwright::lstStepf_MouseUp(forms::MouseButton button) {
  if (button != forms::MouseButton::Right) return;
  mnuHid_Click();
  toolkit_.popUp(mnuHid);
}

void frmListwright::mnuHid_Click() {
  const bool selected = lstStepf.entries().selected >= 0;
  mnuHidd(0).setEnabled(selected);
  mnuHidd(2).setEnabled(selected);
}

void frmListwright::mnuHidd_Click(int index) {
  enum Entry { Open = 0, Delete = 2 };
  const std::u16string path = selectedStepFile();
  if (path.empty()) return;
  if (index == Open) OpenaStepFile(path);
  if (index == Delete) DeleteStepFile(path);
}

void frmListwright::mnuFiles_Click(int index) {
  enum Entry { Open = 0, SaveAs = 1, Print = 3, Close = 5 };
  switch (index) {
    case Open:
      OpenaStepFile(u"");
      break;
    case SaveAs:
      SaveStepFileAs();
      break;
    case Print:
      cmdCIC_Click(kPrint);
      break;
    case Close:
      unload();
      break;
    default:
      break;
  }
}

void frmListwright::PrintStepList(const std::u16string& text) {
  toolkit_.setBusy(true);
  toolkit_.print(text);
  toolkit_.setBusy(false);
}

}  // namespace kvrnstep::dialogs
