#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "dialogs/numeric_fields.h"
#include "stepfiles/open_defaults.h"

namespace kvrnstep::dialogs {

/// The controls that describe the list: its type, options, texts and numbers.
class ListFields {
 public:
  /// As for NumericFields; every change of a setting refreshes the preview.
  ListFields(Dialog& dialog, std::function<void(bool)> enable, std::function<void()> refresh);

  [[nodiscard]] NumericFields& numbers() { return numbers_; }

  /// Does nothing if there is no such type.
  void selectType(std::int16_t type);
  /// The list as the boxes describe it, with the count that was taken from the End box.
  [[nodiscard]] generator::ListSettings settings() const;
  /// The list as it goes into a step file: its numbers are those of the spinners.
  [[nodiscard]] generator::ListSettings settingsForFile() const;
  void show(const generator::ListSettings& settings);
  /// The setup for a step file that cannot be read: no texts, no options, the least numbers.
  void showEmpty();

  [[nodiscard]] stepfiles::OpenDefaults openDefaults() const;
  void show(const stepfiles::OpenDefaults& defaults, bool withType);

 private:
  void optNA_Click(int index);
  void chkLWO_Click(int index);

  Dialog& dialog_;
  std::function<void()> RefreshPreview;
  NumericFields numbers_;
  forms::ControlArray<forms::OptionButton, kListingTypes.size()> optNA{dialog_, "optNA"};
  forms::ControlArray<forms::Control, kListingTypes.size()> imgBull{dialog_, "imgBull"};
  forms::ControlArray<forms::CheckBox, kListOptions.size()> chkLWO{dialog_, "chkLWO"};
  forms::ControlArray<forms::ComboBox, 2> cboPreSuf{dialog_, "cboPreSuf"};
  forms::TextBox& txtBegin = dialog_.control<forms::TextBox>("txtBegin");
  forms::TextBox& txtEnd = dialog_.control<forms::TextBox>("txtEnd");
  /// The boxes that open defaults fill, in the order of their table.
  std::array<forms::TextControl*, stepfiles::kTypedDefaults.size()> typed_;
  std::int16_t iListType = 0;
};

}  // namespace kvrnstep::dialogs
