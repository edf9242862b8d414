#pragma once

#include <vector>

#include "forms/toolkit.h"
#include "window_view.h"

namespace kvrnstep::windows {

/// Stands in for the user.
class Attendant {
 public:
  virtual ~Attendant() = default;
  /// All messages have been dealt with and everything is drawn.
  virtual void windowIdle(WindowView& view) = 0;
};

/// Shows windows with the controls of the system.
class WindowsToolkit final : public forms::Toolkit {
 public:
  explicit WindowsToolkit(Attendant* attendant = nullptr) : attendant_(attendant) {}

  void runModal(forms::Window& window) override;
  void bringToFront() override;
  void showMessage(const forms::Message& message) override;
  std::optional<std::u16string> ask(const forms::Question& question) override;
  std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog) override;
  std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog) override;
  void popUp(forms::MenuEntry& menu) override;
  void print(const std::u16string& text) override;
  void setBusy(bool busy) override;
  forms::Size screenSize() override;
  double fontSize(const std::u16string& font, double points) override;
  void setClipboard(const std::u16string& text) override;
  void playSound(const std::u16string& file, forms::SoundMode mode) override;

  /// Deals with a message that is waiting. False: there is none.
  bool dealWithOne();

 private:
  /// The topmost open window, or null. Its changes are shown first, because another window is about
  /// to be in front of it.
  HWND owner();
  void waitUntilUnloaded(WindowView& view);
  void quit(int status);

  Attendant* attendant_;
  std::vector<WindowView*> open_;
};

}  // namespace kvrnstep::windows
