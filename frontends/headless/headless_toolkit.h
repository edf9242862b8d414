#pragma once

#include "driving/driver.h"

namespace kvrnstep::headless {

/// A front end without a screen: windows are there, but nothing is drawn, and the user is the
/// player. Its screen measures 1280 × 1024 pixels.
class HeadlessToolkit final : public forms::Toolkit, public driving::Driver {
 public:
  forms::Toolkit& toolkit() override { return *this; }

  void runModal(forms::Window& window) override;
  void bringToFront() override {}
  void showMessage(const forms::Message& /*message*/) override {}
  std::optional<std::u16string> ask(const forms::Question& question) override;
  std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog) override;
  std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog) override;
  void popUp(forms::MenuEntry& menu) override;
  void print(const std::u16string& /*text*/) override {}
  void setBusy(bool /*busy*/) override {}
  forms::Size screenSize() override {
    return {1280 * forms::kTwipsPerPixel, 1024 * forms::kTwipsPerPixel};
  }
  void setClipboard(const std::u16string& /*text*/) override {}
  void playSound(const std::u16string& /*file*/, forms::SoundMode /*mode*/) override {}

  bool carryOut(const driving::Gesture& gesture) override;

 private:
  void click(const driving::Gesture& gesture);
  /// A click brings the keyboard to a control.
  void enter(forms::Control& control);
  /// Puts the caret or the mark where it is wanted, and types there.
  void type(forms::TextControl& box, forms::TextSelection selection, std::u16string_view text);

  const forms::Control* focus_ = nullptr;  ///< what was clicked or typed into last
  bool popUpOpen_ = false;
};

}  // namespace kvrnstep::headless
