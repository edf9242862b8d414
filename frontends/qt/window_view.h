#pragma once

#include <QEvent>
#include <QEventLoop>
#include <QMenuBar>
#include <QPointer>
#include <memory>
#include <vector>

#include "control_view.h"
#include "forms/view_sync.h"
#include "x_watch.h"

namespace kvrnstep::qt {

/// Draws one window for as long as it is open. As an event filter it sees what the user does with
/// the frame of the window, and the keys of the controls before they get them.
class WindowView final : public QObject, public forms::ViewSync {
 public:
  WindowView(forms::Window& window, QWidget* owner);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

  /// The view that shows a window, or null.
  static WindowView* of(const forms::Window& window) {
    return static_cast<WindowView*>(window.view());
  }
  /// Only while the view is open.
  [[nodiscard]] QWidget& topLevel() { return *topLevel_; }
  [[nodiscard]] ControlView& viewOf(const forms::Control& control) const;

  void show();
  /// Returns when the window has been unloaded.
  void waitUntilUnloaded();

  // For the views of the controls.
  [[nodiscard]] QWidget* parentFor(const forms::Control& control);
  /// The control that a click at that point of the screen would hit, or null.
  [[nodiscard]] forms::Control* controlAt(QPoint onScreen) const;
  /// Null in a window without menus.
  [[nodiscard]] QMenuBar* menuBar() const { return menuBar_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  std::unique_ptr<forms::ControlSync> makeView(forms::Control& control) override;
  void setTitle(const std::u16string& caption) override;
  void setInnerSize(forms::PixelSize inner) override;
  void setPosition(forms::PixelPoint position) override;
  void setTabOrder(const std::vector<forms::Control*>& order) override;
  void giveKeyboard(const forms::Control* control) override;
  void vanish() override;
  [[nodiscard]] std::vector<forms::Rect> screens() const override;

 private:
  void lose();
  void endLoops();
  void makeMenuBar();
  bool frameEvent(QEvent::Type type);
  bool pressed(ControlView& view, const QKeyEvent& event);
  void released(const QKeyEvent& event);
  [[nodiscard]] bool repeats(const QKeyEvent& event) const;
  [[nodiscard]] ControlView* viewOf(const QObject* widget) const;
  [[nodiscard]] QSize withMenuBar(forms::PixelSize inner) const;

  /// On X a key that repeats is released and pressed at the same moment. Where Qt does not notice
  /// that, a press is recognised as a repeat by the release before it, if that did not count.
  struct Released {
    quint32 code;
    quint64 time;
    bool counted;
  };

  std::unique_ptr<QWidget> topLevel_;
  XWatch watch_;
  QPointer<QMenuBar> menuBar_;
  QPointer<QWidget> ground_;  ///< holds the controls, below the menu bar
  QEventLoop loop_;
  Released lastReleased_{};
  /// The window has been active. A move before that is the window manager's, not the user's.
  bool placed_ = false;
};

}  // namespace kvrnstep::qt
