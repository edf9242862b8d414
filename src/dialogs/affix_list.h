#pragma once

#include <array>
#include <string_view>

#include "plugin/host_context.h"
#include "storage/list_file.h"
#include "text/paths.h"

namespace kvrnstep::dialogs {

/// What tells the lists of favourite prefixes and suffixes apart.
struct AffixKind {
  std::u16string_view file;  ///< in the step folder
  std::u16string_view caption;
  std::u16string_view heading;
};
inline constexpr std::array<AffixKind, 2> kAffixKinds{{
    {u"Prefix_Step.dat", u"Edit Step - Prefixes", u"Prefixes"},
    {u"Suffix_Step.dat", u"Edit Step - Suffixes", u"Suffixes"},
}};

/// The list file of one kind, behind the control that shows its entries.
class AffixFile {
 public:
  AffixFile(const plugin::HostContext& host, const AffixKind& kind)
      : path_(text::inFolder(host.sPthStepFolder, kind.file)) {}

  template <class Control>
  void load(Control& control) {
    whole_ = storage::LoadSaveListFile(control, false, path_);
  }
  /// Does nothing where the file was too large or could not be read, because the entries that the
  /// control does not have would be lost.
  template <class Control>
  void save(Control& control) {
    if (whole_) storage::LoadSaveListFile(control, true, path_);
  }

 private:
  std::u16string path_;
  bool whole_ = false;
};

}  // namespace kvrnstep::dialogs
