#pragma once

#include <QMouseEvent>
#include <functional>
#include <optional>
#include <utility>

#include "forms/control.h"

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

/// A widget that tells of each mouse button released over it, after it has dealt with it itself.
template <class Base>
class MouseReleases : public Base {
 public:
  using Base::Base;

  std::function<void(forms::MouseButton)> onReleased;

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
    if (button && inside && onReleased) onReleased(*button);
  }
};

}  // namespace kvrnstep::qt
