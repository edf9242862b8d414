#pragma once

#include <QWidget>
#include <optional>

#include "forms/control_sync.h"

namespace kvrnstep::qt {

class WindowView;

/// Draws one control with a widget and passes the user's actions on it on. The widget belongs to
/// its parent widget.
class ControlView : public forms::ControlSync {
 public:
  ControlView(WindowView& window, forms::Control& control);

  /// What stands at the control's place; null for entries of menus.
  [[nodiscard]] QWidget* widget() const { return widget_; }
  void setTabStop(bool on) override;

  /// Where on the screen a menu opens that the keyboard asked for.
  [[nodiscard]] virtual QPoint menuPlace() const;

 protected:
  /// To be called by the constructor of each kind.
  void adopt(QWidget* widget);
  void setPlace(const forms::PixelRect& place) override;
  void setEnabled(bool enabled) override { widget_->setEnabled(enabled); }
  void setVisible(bool visible) override { widget_->setVisible(visible); }
  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  WindowView& window_;
  QWidget* widget_ = nullptr;
  Qt::FocusPolicy focusPolicy_ = Qt::NoFocus;
};

}  // namespace kvrnstep::qt
