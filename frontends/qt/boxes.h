#pragma once

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

#include "forms/toolkit.h"

namespace kvrnstep::qt {

/// A message with an OK button.
class MessageBox : public QMessageBox {
 public:
  MessageBox(const forms::Message& message, QWidget* owner);
};

/// A question, a line for the answer with the proposal in it, OK and Cancel.
class QuestionBox : public QInputDialog {
 public:
  QuestionBox(const forms::Question& question, QWidget* owner);

  [[nodiscard]] QLineEdit& line() const;
};

/// Qt's own file dialog, never the desktop's: that one could bring another toolkit into the host.
class FileBox : public QFileDialog {
 public:
  FileBox(const forms::FileDialog& dialog, QFileDialog::AcceptMode mode, QWidget* owner);

 protected:
  /// Qt would treat an empty name as the file ".step".
  void accept() override;
};

}  // namespace kvrnstep::qt
