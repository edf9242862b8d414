#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "dialogs/dialog.h"
#include "generator/list_settings.h"

namespace kvrnstep::dialogs {

/// Start, End and Line Spacing: three boxes and the spinners that belong to them.
class NumericFields {
 public:
  /// @param SetActionsEnabled is told whether the numbers make a list
  /// @param RefreshPreview is called when the user has changed a number
  NumericFields(Dialog& dialog, std::function<void(bool)> enable, std::function<void()> refresh);

  [[nodiscard]] bool startAndEndValid() const;

  /// Takes the number of the last step out of the End box and empties it, until putCountBack().
  void takeCount();
  void putCountBack();
  [[nodiscard]] bool countGiven() const { return iStepCount != 0; }

  /// Start and Line Spacing as their boxes have them, and the count that takeCount() has taken.
  void readBoxes(generator::ListSettings& settings) const;
  void readSpinners(generator::ListSettings& settings) const;
  void show(const generator::ListSettings& settings);

 private:
  void txtBStart_Change();
  void txtBEndAt_Change();
  void txtLS_Change();
  [[nodiscard]] bool lineSpacingValid() const;
  bool enableActions(bool valid);
  void AskSpinnerValue(forms::Spinner& spinner);

  Dialog& dialog_;
  std::function<void(bool)> SetActionsEnabled;
  std::function<void()> RefreshPreview;
  forms::TextBox& txtBStart = dialog_.control<forms::TextBox>("txtBStart");
  forms::TextBox& txtBEndAt = dialog_.control<forms::TextBox>("txtBEndAt");
  forms::TextBox& txtLS = dialog_.control<forms::TextBox>("txtLS");
  forms::Spinner& updBStart = dialog_.control<forms::Spinner>("updBStart");
  forms::Spinner& updBEndAt = dialog_.control<forms::Spinner>("updBEndAt");
  forms::Spinner& updLS = dialog_.control<forms::Spinner>("updLS");
  std::int16_t iStepCount = 0;
  std::u16string endBefore_;  ///< what the End box held when the count was taken
  forms::TextSelection caretBefore_;
};

}  // namespace kvrnstep::dialogs
