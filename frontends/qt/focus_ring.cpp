#include "focus_ring.h"

#include <QApplication>
#include <QMenuBar>

namespace kvrnstep::qt {

FocusRing::FocusRing(QWidget& window) : QFocusFrame(&window) {
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*before*/, QWidget* now) { follow(now); });
}

void FocusRing::follow(QWidget* focus) {
  const bool inside = focus != nullptr && focus->window() == window() && !focus->isWindow();
  // A menu bar marks the menu itself.
  setWidget(inside && qobject_cast<QMenuBar*>(focus) == nullptr ? focus : nullptr);
}

}  // namespace kvrnstep::qt
