#pragma once

#include "control_view.h"
#include "label_view.h"

namespace kvrnstep::windows {

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

/// A strip along the window's bottom edge, with a grip to size the window by.
class StatusBarView : public ControlView {
 public:
  StatusBarView(WindowView& window, forms::Control& bar);
};

/// A frame or a panel; nothing is drawn of it but what it contains.
class ContainerView : public ControlView {
 public:
  ContainerView(WindowView& window, forms::Control& container);

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;
};

}  // namespace kvrnstep::windows
