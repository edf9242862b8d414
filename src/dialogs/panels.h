#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "dialogs/dialog.h"

namespace kvrnstep::dialogs {

/// The two panels of the dialog, the list of step files and the preview: which of them the Options
/// menu shows, and where everything is then.
class Panels {
 public:
  Panels(Dialog& dialog, std::function<void()> RefreshPreview);

  [[nodiscard]] bool anyShown() const { return bolPanelShown; }
  [[nodiscard]] bool filesShown() const { return files_.checked(); }
  void toggleFiles();
  void togglePreview();

  /// As the settings file keeps it: "Files", "Preview", "FilesPreview" or nothing.
  [[nodiscard]] std::u16string display() const;
  void restore(std::u16string_view display);

  /// Save As, Print and Open beside the panels are enabled only while the preview is shown.
  void enableButtons(bool enabled);

 private:
  void toggle(forms::MenuEntry& entry);
  void layOut();
  void showButtons(bool shown);

  Dialog& dialog_;
  std::function<void()> RefreshPreview;
  forms::MenuEntry& files_ = dialog_.control<forms::MenuEntry>("mnuOptions", 4);
  forms::MenuEntry& preview_ = dialog_.control<forms::MenuEntry>("mnuOptions", 5);
  forms::Control& fraStep = dialog_.control<forms::Control>("fraStep");
  forms::TextBox& txtPreview = dialog_.control<forms::TextBox>("txtPreview");
  forms::ListBox& lstStepf = dialog_.control<forms::ListBox>("lstStepf");
  std::array<forms::Control*, 3> buttons_{&dialog_.control<forms::Control>("cmdCIC", 3),
                                          &dialog_.control<forms::Control>("cmdCIC", 4),
                                          &dialog_.control<forms::Control>("cmdCIC", 5)};
  bool bolPanelShown = false;
};

}  // namespace kvrnstep::dialogs
