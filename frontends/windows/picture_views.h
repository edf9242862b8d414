#pragma once

#include "control_view.h"
#include "label_view.h"

namespace kvrnstep::windows {

/// A picture.
class ImageView : public MouseView {
 public:
  ImageView(WindowView& window, forms::Control& image);

  std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer) override;

 protected:
  void setPicture(forms::Picture picture) override;

 private:
  void draw(const DRAWITEMSTRUCT& request) const;
  [[nodiscard]] int size() const;

  Icon picture_;
};

/// A strip along the window's bottom edge, with the grip for sizing the window.
class StatusBarView : public ControlView {
 public:
  StatusBarView(WindowView& window, forms::Control& bar);
};

/// A frame or a panel: a plain ground for what it contains.
class ContainerView : public ControlView {
 public:
  ContainerView(WindowView& window, forms::Control& container);

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
};

}  // namespace kvrnstep::windows
