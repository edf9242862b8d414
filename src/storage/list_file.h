#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "text/codepage.h"

/// List files: one entry a line.
namespace kvrnstep::storage {

/// Most lines that are read from a list file, the empty ones counted.
inline constexpr std::size_t kMostListLines = 32'001;

/// What was read of a list file.
struct LoadedList {
  std::vector<std::u16string> entries;
  bool whole = false;  ///< the file was read to its end
};

/// The entries in the bytes of a list file, as they are. Lines end at CR LF or CR; LF alone
/// belongs to the entry. Empty lines are no entries.
LoadedList parseList(std::string_view bytes);

/// The entries of a list file, which is created empty when it is missing and can be created. None
/// when it cannot be read.
LoadedList readListFile(const std::u16string& path);

/// Loads a list file into a list-like control, or saves the control's entries to the file. What
/// fails is skipped: a target without a readable file is left empty, a file that cannot be
/// written stays as it is.
/// @param lstTarget has Clear(), AddItem(std::u16string), ListCount() and List(int)
/// @param bSave true saves, false loads
/// @return whether the file was read to its end, or written; a list that was not read whole must
/// not be saved over its file
template <class ListTarget>
bool LoadSaveListFile(ListTarget& lstTarget, bool bSave, const std::u16string& sListFile) {
  if (!bSave) {
    lstTarget.Clear();
    LoadedList loaded = readListFile(sListFile);
    for (auto& entry : loaded.entries) lstTarget.AddItem(std::move(entry));
    return loaded.whole;
  }
  std::u16string lines;
  for (int i = 0; i < lstTarget.ListCount(); ++i) {
    lines += lstTarget.List(i);
    lines += u"\r\n";
  }
  return platform::replaceFile(sListFile, text::toBytes(lines));
}

}  // namespace kvrnstep::storage
