#pragma once

#include <QMenu>
#include <vector>

#include "boxes.h"
#include "forms/toolkit.h"
#include "window_view.h"

namespace kvrnstep::qt {

/// Called for everything that opens, before it waits for its user.
class Attendant {
 public:
  virtual ~Attendant() = default;
  virtual void windowOpened(WindowView& view) = 0;
  virtual void messageOpened(QMessageBox& box) = 0;
  virtual void questionOpened(QuestionBox& box) = 0;
  virtual void fileBoxOpened(FileBox& box) = 0;
  virtual void popUpOpened(QMenu& menu) = 0;
};

/// Shows windows with Qt's widgets. The process must have a QApplication.
class QtToolkit final : public forms::Toolkit {
 public:
  explicit QtToolkit(Attendant* attendant = nullptr) : attendant_(attendant) {}

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

  Attendant* attendant_;
  std::vector<WindowView*> open_;
};

}  // namespace kvrnstep::qt
