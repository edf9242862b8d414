#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>

namespace kvrnstep::qt {

class WindowView;

/// Sees the keys of a window's controls before the widgets do. It tells of all that go down and
/// come up, and keeps those from the widgets that do something else than type or move a caret.
class CommandKeys : public QObject {
 public:
  explicit CommandKeys(WindowView& window) : window_(window) {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool pressed(const QWidget& widget, const QKeyEvent& event);
  void released(const QKeyEvent& event);
  [[nodiscard]] bool repeats(const QKeyEvent& event) const;

  /// X tells a repeat as a release and a press of the same moment, which Qt takes for two of the
  /// user's if they come one by one. A key that was held here then goes on being held.
  struct Released {
    quint32 code;
    quint64 time;
    bool counted;
  };

  WindowView& window_;
  Released lastReleased_{};
};

}  // namespace kvrnstep::qt
