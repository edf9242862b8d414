#include "stepfiles/path_part.h"

#include <algorithm>

#include "text/paths.h"

namespace kvrnstep::stepfiles {

std::u16string PathPart(const std::u16string& path, PathMode mode) {
  const auto separator = std::ranges::find_if(path.rbegin(), path.rend(), text::isSeparator);
  if (separator == path.rend()) return {};
  std::u16string folder(path.begin(), separator.base());
  std::u16string name(separator.base(), path.end());
  const std::size_t stop = name.rfind(u'.');
  switch (mode) {
    case PathMode::BaseName:
      return name.substr(0, stop);
    case PathMode::FileName:
      return name;
    case PathMode::FolderSeparated:
      return folder;
    case PathMode::Folder:
      return folder.substr(0, folder.size() - 1);
    case PathMode::Extension:
      break;
  }
  return stop == std::u16string::npos ? std::u16string() : name.substr(stop + 1);
}

}  // namespace kvrnstep::stepfiles
