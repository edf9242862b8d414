#pragma once

#include "driving/driven_toolkit.h"

namespace kvrnstep::headless {

/// A front end without a screen: windows are there, but nothing is drawn, and the user is the
/// player. Its screen measures 1280 × 1024 pixels.
class HeadlessToolkit final : public driving::DrivenToolkit {
 public:
  void setPlayer(driving::Player& player) override { player_ = &player; }

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
  std::optional<driving::Value> shown(const forms::Control& /*control*/,
                                      std::string_view /*property*/) override {
    return std::nullopt;
  }

 private:
  void click(const driving::Gesture& gesture);
  void doubleClick(const driving::Gesture& gesture);
  /// A click brings the keyboard to a control.
  void enter(forms::Control& control);
  void type(forms::TextControl& box, std::u16string_view text);
  void clear(forms::TextControl& box);
  bool pick(forms::MenuEntry& entry);

  driving::Player* player_ = nullptr;
  const forms::Control* focus_ = nullptr;  ///< what was clicked or typed into last
  bool popUpOpen_ = false;
};

}  // namespace kvrnstep::headless
