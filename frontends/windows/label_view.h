#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// A control that is clicked by pressing and releasing a button of the mouse over it. If it can be
/// clicked or dragged it takes the keyboard, too.
class MouseView : public ControlView {
 public:
  using ControlView::ControlView;

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
  /// The left button has gone down …
  virtual void pressed() {}
  /// … and come up again, wherever the mouse is by then.
  virtual void released(POINT /*onScreen*/) {}
  [[nodiscard]] bool hasFocus() const { return ::GetFocus() == handle(); }
};

/// A plain caption, a link, or a label that can be dragged. Dragging is done with the mouse
/// captured and not with the system's drag and drop, because nothing is dragged out of the window.
class LabelView : public MouseView {
 public:
  LabelView(WindowView& window, forms::Control& label);

 protected:
  HBRUSH colored(HDC context) override;
  void recolor() override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
  void pressed() override;
  void released(POINT onScreen) override;

 private:
  void drawFocus() const;
  void hover(bool on);
  void setDragged(bool dragged);

  COLORREF color_ = 0;       ///< of a link …
  COLORREF hoverColor_ = 0;  ///< … under the mouse
  bool hovered_ = false;
  bool dragged_ = false;
};

}  // namespace kvrnstep::windows
