#pragma once

#include <QFileDialog>

#include "forms/toolkit.h"

namespace kvrnstep::qt {

/// Qt's own file dialog, never the desktop's: that one could bring another toolkit into the host.
class FileBox : public QFileDialog {
 public:
  FileBox(const forms::FileDialog& dialog, QFileDialog::AcceptMode mode, QWidget* owner);

  /// Lets the user choose; the full path, or nothing.
  std::optional<std::u16string> choose();

 protected:
  /// Qt would take a name that was cleared for that of a file called ".step".
  void accept() override;
};

}  // namespace kvrnstep::qt
