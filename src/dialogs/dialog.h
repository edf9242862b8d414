#pragma once

#include <string>
#include <string_view>

#include "forms/toolkit.h"
#include "plugin/host_context.h"
#include "storage/settings_store.h"

namespace kvrnstep::dialogs {

/// A window of the plug-in. It keeps keys in the settings file of the host, among them its place.
class Dialog : public forms::Window {
 public:
  /// All arguments must outlive the dialog.
  /// @param placeKeys what the keys of its place begin with: "StepBE" for "StepBE_LT" (left
  /// edge), "StepBE_TT" (top edge), "StepBE_HT" (height) and "StepBE_WT" (width), which are in
  /// twips
  Dialog(const forms::WindowDesign& design, forms::Toolkit& toolkit,
         const plugin::HostContext& host, std::u16string_view placeKeys)
      : Window(design), toolkit_(toolkit), host_(host), placeKeys_(placeKeys) {}

  void centre();

  [[nodiscard]] forms::Toolkit& toolkit() const { return toolkit_; }
  [[nodiscard]] const plugin::HostContext& host() const { return host_; }

 protected:
  [[nodiscard]] std::u16string readKey(std::u16string_view key, std::u16string_view fallback) const;

  /// Moves the window to where it was when it was last closed, the first time to the middle of the
  /// screen. One that the user can size gets its last size too, half of its own the first time. An
  /// edge stays as it is if the value of its key is not a number.
  void restorePlace();
  /// Stores these keys and the place in one write. The place of a minimized window is not stored.
  void saveKeys(modSecns::IniKeys keys = {}) const;

 private:
  void restore(std::u16string_view edge, void (Window::*set)(double), double fallback);

  forms::Toolkit& toolkit_;
  const plugin::HostContext& host_;
  std::u16string placeKeys_;
};

}  // namespace kvrnstep::dialogs
