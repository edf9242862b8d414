#include <algorithm>
#include <array>

#include "dialogs/frm_listwright.h"
#include "plugin/alert_sound.h"
#include "stepfiles/path_part.h"
#include "stepfiles/step_file_name.h"
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

/// A path with the extension ".step" in place of another one: the plain name, or the first one
/// with a number behind it that is not in use.
/// @param inUse set to whether all names that were tried are in use
std::u16string replacementPath(const std::u16string& path, bool& inUse) {
  constexpr int kMostNumbers = 32000;
  const std::u16string base =
      PathPart(path, PathMode::FolderSeparated) + PathPart(path, PathMode::BaseName);
  std::u16string replacement = base;
  replacement += stepfiles::kStepExtension;
  for (int n = 0; (inUse = storage::PathExists(replacement)) && n <= kMostNumbers;) {
    replacement = base + text::decimal(++n);
    replacement += stepfiles::kStepExtension;
  }
  return replacement;
}

}  // namespace

void frmListwright::OpenaStepFile(const std::u16string& sAltStepFile) {
  std::u16string path = sAltStepFile;
  if (path.empty()) {
    const auto chosen = toolkit().ShowOpenDialog(
        {.title = u"Open", .filters = kFiltersToOpen, .name = {}, .folder = host().sPthStepFolder});
    if (!chosen) return;
    path = *chosen;
  }
  if (!path.ends_with(stepfiles::kStepExtension)) {
    plugin::PlayAlertSound(toolkit(), host(), host().swavAlertQ, 0);
    return;
  }
  const auto bytes = stepfiles::readStepFile(path);
  const auto settings = stepfiles::parseStepRecord(bytes.value_or(""));
  if (settings) fields_.show(*settings);
  if (!bytes) fields_.showEmpty();
  RefreshPreview();
  if (sAltStepFile.empty() && panels_.filesShown()) stepFiles_.selectNone();
}

void frmListwright::SaveStepFileAs() {
  const generator::ListSettings settings = fields_.settingsForFile();
  const auto path = toolkit().ShowSaveDialog({.title = u"Save As",
                                              .filters = kFiltersToSave,
                                              .name = stepfiles::BuildStepFileName(settings),
                                              .folder = host().sPthStepFolder,
                                              .defaultExtension = u"step"});
  if (!path) return;
  if (path->ends_with(u"step")) {
    stepfiles::writeStepFile(*path, settings);
  } else if (PathPart(*path, PathMode::Extension) == u"txt") {
    // The dialog never reads this file, so only the limit of lists counts.
    storage::WriteTextFile(*path, txtPreview.text(), platform::kAnySize);
  } else {
    saveUnderStepExtension(*path);
  }
  stepFiles_.FillStepFileList();
}

void frmListwright::saveUnderStepExtension(const std::u16string& path) {
  bool inUse = false;
  const std::u16string replacement = replacementPath(path, inUse);
  std::u16string text(kViolation);
  text += u"\n\n" + PathPart(path, PathMode::FileName) + u"\n\nWill be changed to:\n\n" +
          PathPart(replacement, PathMode::FileName);
  toolkit().showMessage({forms::MessageIcon::Exclamation, std::u16string(kViolation), text});
  // A file that the system cannot look up counts as missing. It must not be overwritten because of
  // that.
  stepfiles::writeStepFile(replacement, fields_.settingsForFile(), !inUse);
}

}  // namespace kvrnstep::dialogs
