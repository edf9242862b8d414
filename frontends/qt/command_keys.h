#pragma once

#include <QObject>

namespace kvrnstep::qt {

class WindowView;

/// Sees the keys that are pressed in a window's controls before the widgets do, and passes those
/// on that do something else than type or move a caret.
class CommandKeys : public QObject {
 public:
  explicit CommandKeys(WindowView& window) : window_(window) {}

  bool eventFilter(QObject* widget, QEvent* event) override;

 private:
  WindowView& window_;
};

}  // namespace kvrnstep::qt
