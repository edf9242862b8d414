#pragma once

#include <QMouseEvent>
#include <optional>

#include "forms/user_actions.h"

namespace kvrnstep::qt {

inline std::optional<forms::MouseButton> mouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return forms::MouseButton::Left;
    case Qt::MiddleButton:
      return forms::MouseButton::Middle;
    case Qt::RightButton:
      return forms::MouseButton::Right;
    default:
      return std::nullopt;
  }
}

/// A widget that reports to its control each mouse button that is released over it.
template <class Base>
class MouseReleases : public Base {
 public:
  MouseReleases(forms::Control& control, QWidget* parent) : Base(parent), control_(control) {}

  [[nodiscard]] forms::Control& control() const { return control_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    Base::mousePressEvent(event);
    // Otherwise the parent would get the press, and with it the release.
    event->accept();
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    const auto button = mouseButton(event->button());
    const bool inside = this->rect().contains(event->position().toPoint());
    Base::mouseReleaseEvent(event);
    event->accept();
    if (button && inside) forms::userReleasedMouse(control_, *button);
  }

 private:
  forms::Control& control_;
};

}  // namespace kvrnstep::qt
