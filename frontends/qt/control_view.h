#pragma once

#include <QAbstractItemModel>
#include <QWidget>

#include "forms/control_sync.h"

namespace kvrnstep::qt {

class WindowView;

/// Draws one control with a widget, and passes on what the user does there. The widget belongs to
/// its parent widget.
class ControlView : public forms::ControlSync {
 public:
  /// Entries of menus have no widget.
  ControlView(WindowView& window, forms::Control& control, QWidget* widget);

  [[nodiscard]] QWidget* widget() const { return widget_; }
  void setTabStop(bool on) override;

 protected:
  void setPlace(const forms::PixelRect& place) override;
  void setEnabled(bool enabled) override { widget_->setEnabled(enabled); }
  void setVisible(bool visible) override { widget_->setVisible(visible); }
  void fitCaption() override;
  /// Pixels that the caption may take in its line.
  [[nodiscard]] virtual int captionWidth() const { return widget_->width(); }
  [[nodiscard]] forms::TextSync* text() override;

 private:
  QWidget* widget_;
  Qt::FocusPolicy focusPolicy_ = Qt::NoFocus;
};

/// A frame or a panel, a plain ground for what it contains; or the strip along the window's bottom
/// edge, with the platform's grip for sizing the window.
class GroundView : public ControlView {
 public:
  GroundView(WindowView& window, forms::Control& control);
};

/// Has a QStringListModel hold the entries.
void showEntries(QAbstractItemModel* model, const std::vector<std::u16string>& entries);

}  // namespace kvrnstep::qt
