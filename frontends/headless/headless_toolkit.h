#pragma once

#include "forms/driven_toolkit.h"

namespace kvrnstep::headless {

/// A front end without a screen: windows are there, but nothing is drawn, and the user is whoever
/// plays the pilot. Its screen measures 1280 × 1024 pixels.
class HeadlessToolkit final : public forms::DrivenToolkit {
 public:
  void setPilot(forms::Pilot& pilot) override { pilot_ = &pilot; }

  void runModal(forms::Window& window) override;
  void bringToFront() override {}
  void showMessage(const forms::Message& /*message*/) override {}
  std::optional<std::u16string> ask(const forms::Question& question) override;
  std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog) override;
  std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog) override;
  void popUp(forms::MenuEntry& menu) override;
  void print(const std::u16string& /*text*/) override {}
  void setBusy(bool /*busy*/) override {}
  double screenWidth() override { return 1280 * forms::kTwipsPerPixel; }
  double screenHeight() override { return 1024 * forms::kTwipsPerPixel; }
  void letEventsRun() override {}
  void setClipboard(const std::u16string& /*text*/) override {}
  void playSound(const std::u16string& /*file*/, forms::SoundMode /*mode*/) override {}

  bool click(forms::Control& control, forms::MouseButton button, std::optional<int> entry) override;
  bool doubleClick(forms::Control& control, std::optional<int> entry) override;
  bool type(forms::TextControl& box, std::u16string_view text) override;
  bool clear(forms::TextControl& box) override;
  bool select(forms::TextControl& box, forms::TextSelection selection) override;
  bool press(forms::Window& window, std::string_view keys) override;
  bool choose(forms::ComboBox& combo, int entry) override;
  bool spin(forms::Spinner& spinner, bool up) override;
  bool drag(forms::Control& from, forms::Control& to) override;
  bool pick(forms::MenuEntry& entry) override;
  bool escape() override;
  bool move(forms::Window& window, double left, double top) override;
  bool resize(forms::Window& window, double width, double height) override;
  bool minimize(forms::Window& window, bool minimized) override;
  bool close(forms::Window& window) override;

  std::optional<forms::PropertyValue> shown(const forms::Control& /*control*/,
                                            forms::Property /*property*/) override {
    return std::nullopt;
  }

 private:
  /// A click brings the keyboard to a control.
  void enter(forms::Control& control);

  forms::Pilot* pilot_ = nullptr;
  const forms::Control* focus_ = nullptr;  ///< what was clicked or typed into last
  bool popUpOpen_ = false;
};

}  // namespace kvrnstep::headless
