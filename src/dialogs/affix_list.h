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

/// The list file of one kind and the control that shows its entries.
template <class ListTarget>
class AffixFile {
 public:
  AffixFile(const plugin::HostContext& host, const AffixKind& kind, ListTarget& target)
      : file_(text::inFolder(host.sPthStepFolder, kind.file)), target_(target) {}

  void load() { storage::LoadSaveListFile(target_, false, file_); }
  void save() { storage::LoadSaveListFile(target_, true, file_); }

 private:
  storage::ListFile file_;
  ListTarget& target_;
};

}  // namespace kvrnstep::dialogs
