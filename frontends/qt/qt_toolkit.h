#pragma once

#include <vector>

#include "boxes.h"
#include "forms/toolkit.h"
#include "window_view.h"

namespace kvrnstep::qt {

/// Shows windows with Qt's widgets. The process must have a QApplication.
class QtToolkit : public forms::Toolkit {
 public:
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
  void setClipboard(const std::u16string& text) override;
  void playSound(const std::u16string& file, forms::SoundMode mode) override;

 private:
  /// The topmost open window, or null. All that has changed is drawn before another one opens.
  QWidget* owner();
  std::optional<std::u16string> askFile(const forms::FileDialog& dialog,
                                        QFileDialog::AcceptMode mode);

  std::vector<WindowView*> open_;
};

}  // namespace kvrnstep::qt
