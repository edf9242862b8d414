#pragma once

#include "control_view.h"
#include "drag_label.h"

namespace kvrnstep::qt {

/// A caption, plain or to be clicked.
class LabelView : public ControlView {
 public:
  LabelView(WindowView& window, forms::Control& label);

  void setBuddy(forms::ControlSync& buddy) override;

 protected:
  void setCaption(const std::u16string& caption) override;
  void fitCaption() override;
  void setCursor(int resourceId) override;
  void recolor() override;

 private:
  DragLabel* label_;
};

/// A picture.
class ImageView : public ControlView {
 public:
  ImageView(WindowView& window, forms::Control& image);

 protected:
  void setPicture(forms::Picture picture) override;
  void setCursor(int resourceId) override;

 private:
  ActiveLabel* label_;
};

/// A strip along the window's bottom edge, with the platform's grip for sizing the window.
class StatusBarView : public ControlView {
 public:
  StatusBarView(WindowView& window, forms::Control& bar);
};

/// A frame or a panel: a plain ground for what it contains.
class ContainerView : public ControlView {
 public:
  ContainerView(WindowView& window, forms::Control& container);
};

/// Has screen readers told of containers as of groups of controls.
void announceGroups();

}  // namespace kvrnstep::qt
