#pragma once

#include <QEventLoop>
#include <QMenuBar>
#include <QPointer>
#include <memory>
#include <vector>

#include "command_keys.h"
#include "control_view.h"
#include "forms/keyboard.h"
#include "forms/view_sync.h"
#include "top_level.h"
#include "x_watch.h"

namespace kvrnstep::qt {

class MenuView;

/// Draws one window for as long as it is open.
class WindowView final : public forms::ViewSync {
 public:
  WindowView(forms::Window& window, QWidget* owner);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

  /// To be asked for as long as the view is open.
  [[nodiscard]] TopLevel& topLevel() { return *topLevel_; }
  [[nodiscard]] ControlView& viewOf(const forms::Control& control) const;

  void show();
  /// Returns when the window has been unloaded.
  void waitUntilUnloaded();

  // For the views of the controls.
  [[nodiscard]] QWidget* parentFor(const forms::Control& control);
  /// The menu that an entry stands in; null for a menu of the menu bar or a pop-up menu.
  [[nodiscard]] MenuView* menuAbove(const forms::Control& entry) const;
  /// The control that a click at that point of the screen would meet, or null.
  [[nodiscard]] forms::Control* controlAt(QPoint onScreen) const;
  /// Null in a window without menus.
  [[nodiscard]] QMenuBar* menuBar() const { return menuBar_; }
  [[nodiscard]] CommandKeys& commandKeys() { return commandKeys_; }
  /// The view whose widget that is, or null.
  [[nodiscard]] ControlView* viewOf(const QWidget& widget) const;
  /// A key was pressed in a control. True: the widget must not see it.
  bool pressed(ControlView& view, forms::CommandKey key);
  /// False: there is none.
  bool enterMenuBar();
  /// Where on the screen a pop-up menu is to open.
  [[nodiscard]] QPoint menuPlace() const;

 protected:
  std::unique_ptr<forms::ControlSync> makeView(forms::Control& control) override;
  void setTitle(const std::u16string& caption) override;
  void setInnerSize(forms::PixelSize size) override;
  void setPosition(forms::PixelPoint position) override;
  void setTabOrder(const std::vector<forms::Control*>& order) override;
  void giveKeyboard(const forms::Control* control) override;
  void vanish() override;
  [[nodiscard]] std::vector<forms::Rect> screens() const override;

 private:
  void lose();
  void endLoops();
  void makeMenuBar();
  void reportMove();
  void reportState();
  void followColors();
  [[nodiscard]] QSize withMenuBar(forms::PixelSize inner) const;

  std::unique_ptr<TopLevel> topLevel_;
  XWatch watch_;
  CommandKeys commandKeys_;
  QPointer<QMenuBar> menuBar_;
  QPointer<QWidget> ground_;  ///< holds the controls, below the menu bar
  QEventLoop loop_;
  std::optional<QPoint> menuPlace_;
  /// The window manager has put the window where it likes to, which is not the user's doing.
  bool placed_ = false;
};

}  // namespace kvrnstep::qt
