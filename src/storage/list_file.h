#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// List files: one entry a line.
namespace kvrnstep::storage {

/// Most lines that are read from a list file, the empty ones counted.
inline constexpr std::size_t kMostListLines = 32'001;

using ListEntries = std::vector<std::u16string>;

/// What was read of a list file.
struct LoadedList {
  ListEntries entries;
  std::u16string rest;  ///< what follows the lines that are read
};

/// The entries in the bytes of a list file, as they are. Lines end at CR LF or CR; LF alone
/// belongs to the entry. Empty lines are no entries.
LoadedList parseList(std::string_view bytes);

/// A list file as a dialog has found it. Others may change the file while the dialog is open, so a
/// save writes only what the dialog has changed.
class ListFile {
 public:
  explicit ListFile(std::u16string path) : path_(std::move(path)) {}

  /// The entries of the file, which is created empty when it is missing and can be created. None
  /// when it cannot be read.
  ListEntries load();
  /// Writes the list as the dialog leaves it: its order, without what others have deleted since
  /// `load`, and with what they have added at the end. Lines beyond those that are read stay behind
  /// it. Nothing is written where the list is as it was loaded, or the file cannot be read.
  void save(const ListEntries& edited);

 private:
  std::u16string path_;
  std::string loaded_;  ///< bytes
};

/// Loads a list file into a list-like control, or saves the control's entries to the file. What
/// fails is skipped: a target without a readable file is left empty, a file that cannot be
/// written stays as it is.
/// @param lstTarget has Clear(), AddItem(std::u16string), ListCount() and List(int)
/// @param bSave true saves, false loads
template <class ListTarget>
void LoadSaveListFile(ListTarget& lstTarget, bool bSave, ListFile& sListFile) {
  if (!bSave) {
    lstTarget.Clear();
    for (auto& entry : sListFile.load()) lstTarget.AddItem(std::move(entry));
    return;
  }
  ListEntries entries;
  for (int i = 0; i < lstTarget.ListCount(); ++i) entries.push_back(lstTarget.List(i));
  sListFile.save(entries);
}

}  // namespace kvrnstep::storage
