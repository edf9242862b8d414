#pragma once

#include "control_view.h"

namespace kvrnstep::windows {

/// What takes the mouse: a button that is pressed and released over it counts. What can be clicked
/// or dragged takes the keyboard too.
class MouseView : public ControlView {
 public:
  using ControlView::ControlView;

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
  /// The left button has gone down; it is held until it comes up or something takes it away.
  virtual void pressed() {}
  virtual void released(POINT /*onScreen*/) {}
  [[nodiscard]] bool hasFocus() const { return ::GetFocus() == handle(); }
};

/// A caption, plain, to be clicked or to be dragged. From the press of the left button to its
/// release the mouse carries a label about; what is dragged never leaves the window, so no other
/// program is told of it.
class LabelView : public MouseView {
 public:
  LabelView(WindowView& window, forms::Control& label);

 protected:
  HBRUSH colored(HDC context) override;
  void setPlace(const forms::PixelRect& place) override;
  void setCaption(const std::u16string& caption) override;
  void fitCaption() override;
  void recolor() override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
  void pressed() override;
  void released(POINT onScreen) override;

 private:
  void drawFocus() const;
  [[nodiscard]] int width(int planned) const;

  Font font_;
  COLORREF color_ = 0;  ///< of a link
  bool dragged_ = false;
};

}  // namespace kvrnstep::windows
