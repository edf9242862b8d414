#pragma once

#include "driving/driven_toolkit.h"

namespace kvrnstep::driving {

/// A driven toolkit over the one that people use, which does all that is not a gesture.
template <class Native>
class DrivenOver : public DrivenToolkit {
 public:
  /// @param attendant is told by the toolkit of what it opens
  template <class Attendant>
  explicit DrivenOver(Attendant* attendant) : native_(attendant) {}

  void runModal(forms::Window& window) override { native_.runModal(window); }
  void bringToFront() override { native_.bringToFront(); }
  void showMessage(const forms::Message& message) override { native_.showMessage(message); }
  std::optional<std::u16string> ask(const forms::Question& question) override {
    return native_.ask(question);
  }
  std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog) override {
    return native_.ShowOpenDialog(dialog);
  }
  std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog) override {
    return native_.ShowSaveDialog(dialog);
  }
  void popUp(forms::MenuEntry& menu) override { native_.popUp(menu); }
  void print(const std::u16string& text) override { native_.print(text); }
  void setBusy(bool busy) override { native_.setBusy(busy); }
  forms::Size screenSize() override { return native_.screenSize(); }
  double fontSize(const std::u16string& font, double points) override {
    return native_.fontSize(font, points);
  }
  void setClipboard(const std::u16string& text) override { native_.setClipboard(text); }
  void playSound(const std::u16string& file, forms::SoundMode mode) override {
    native_.playSound(file, mode);
  }

  void setPlayer(Player& player) override { player_ = &player; }

 protected:
  [[nodiscard]] const Native& native() const { return native_; }
  [[nodiscard]] Native& native() { return native_; }
  /// There is one before anything opens.
  [[nodiscard]] Player& player() const { return *player_; }

 private:
  Native native_;
  Player* player_ = nullptr;
};

}  // namespace kvrnstep::driving
