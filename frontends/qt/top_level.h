#pragma once

#include <QWidget>
#include <functional>

namespace kvrnstep::qt {

/// A window on the screen. It tells of what is done to it by means of its frame, and when somebody
/// destroys it.
class TopLevel : public QWidget {
 public:
  explicit TopLevel(QWidget* owner);
  ~TopLevel() override;
  TopLevel(const TopLevel&) = delete;
  TopLevel& operator=(const TopLevel&) = delete;

  std::function<void()> onMoved;
  std::function<void()> onResized;
  std::function<void()> onStateChanged;
  std::function<void()> onCloseBox;
  std::function<void()> onColorsChanged;
  std::function<void()> onDestroyed;

 protected:
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
};

}  // namespace kvrnstep::qt
