#pragma once

#include <QEventLoop>
#include <QMenuBar>
#include <QPointer>
#include <memory>
#include <unordered_map>
#include <vector>

#include "command_keys.h"
#include "control_view.h"
#include "forms/keyboard.h"
#include "forms/window.h"
#include "top_level.h"

namespace kvrnstep::qt {

/// Draws one window for as long as it is open.
class WindowView final : public forms::View {
 public:
  WindowView(forms::Window& window, QWidget* owner);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

  [[nodiscard]] forms::Window& window() const { return window_; }
  /// To be asked for as long as the view is open.
  [[nodiscard]] TopLevel& topLevel() { return *topLevel_; }
  [[nodiscard]] ControlView& viewOf(const forms::Control& control) const;
  /// False when the window has been unloaded, or somebody else has destroyed its widget.
  [[nodiscard]] bool open() const { return !unloaded_ && topLevel_ != nullptr; }

  void show();
  /// Returns when the window has been unloaded.
  void waitUntilUnloaded();

  // For the views of the controls.
  [[nodiscard]] QWidget* parentFor(const forms::Control& control);
  [[nodiscard]] QRect pixelPlace(const forms::Control& control) const;
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
  /// Marks a property of all controls of a kind.
  void markKind(forms::Kind kind, forms::Property property);

  // forms::View
  void changed(forms::Control& control, forms::Property property) override;
  void changed(forms::Property property) override;
  void update() override;
  void setFocus(forms::Control& control) override;
  void unloaded() override;

 private:
  void build();
  void lose();
  void endLoops();
  std::unique_ptr<ControlView> makeView(forms::Control& control);
  void joinLabels();
  void applyWindow(const Changes& changes);
  void applySize();
  void applyPosition();
  void arrangeFocus();
  void giveFocus();

  void reportMove();
  void reportResize();
  void reportState();
  void followColors();

  [[nodiscard]] int pixels(double units) const;
  [[nodiscard]] QSize frameless() const;
  [[nodiscard]] QSize smallest() const;

  forms::Window& window_;
  std::unique_ptr<TopLevel> topLevel_;
  CommandKeys commandKeys_;
  QPointer<QMenuBar> menuBar_;
  QPointer<QWidget> ground_;  ///< holds the controls, below the menu bar
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unordered_map<const forms::Control*, ControlView*> byControl_;
  Changes changes_;
  QEventLoop loop_;
  QPoint position_;  ///< of the frame, as it was last shown or reported
  forms::Control* focus_ = nullptr;
  std::optional<QPoint> menuPlace_;
  /// The window manager has put the window where it likes to, which is not the user's doing.
  bool placed_ = false;
  bool arrangementChanged_ = true;
  bool updating_ = false;
  bool unloaded_ = false;
};

}  // namespace kvrnstep::qt
