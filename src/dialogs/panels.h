#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/toolkit.h"

namespace kvrnstep::dialogs {

/// The two panels of the dialog, the list of step files and the preview: which of them the Options
/// menu shows, and where everything is then.
class Panels {
 public:
  Panels(forms::Window& window, forms::Toolkit& toolkit, std::function<void()> RefreshPreview);

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

  forms::Window& window_;
  forms::Toolkit& toolkit_;
  std::function<void()> RefreshPreview;
  forms::MenuEntry& files_ = window_.control<forms::MenuEntry>("mnuOptions", 4);
  forms::MenuEntry& preview_ = window_.control<forms::MenuEntry>("mnuOptions", 5);
  forms::Control& fraStep = window_.control<forms::Control>("fraStep");
  forms::TextBox& txtPreview = window_.control<forms::TextBox>("txtPreview");
  forms::ListBox& lstStepf = window_.control<forms::ListBox>("lstStepf");
  forms::ControlArray<forms::Control, 6> cmdCIC{window_, "cmdCIC"};
  bool bolPanelShown = false;
};

}  // namespace kvrnstep::dialogs
