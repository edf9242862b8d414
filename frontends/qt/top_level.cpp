#include "top_level.h"

#include <QCloseEvent>
#include <QEvent>

namespace kvrnstep::qt {

TopLevel::TopLevel(QWidget* owner)
    : QWidget(owner, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                         Qt::WindowCloseButtonHint) {
  setWindowModality(Qt::ApplicationModal);
  // Closing a dialog must not end a host whose own windows happen to be closed.
  setAttribute(Qt::WA_QuitOnClose, false);
}

TopLevel::~TopLevel() {
  if (onDestroyed) onDestroyed();
}

void TopLevel::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (onMoved) onMoved();
}

void TopLevel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (onResized) onResized();
}

void TopLevel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool state =
      event->type() == QEvent::WindowStateChange || event->type() == QEvent::ActivationChange;
  if (state && onStateChanged) onStateChanged();
  if (event->type() == QEvent::PaletteChange && onColorsChanged) onColorsChanged();
}

void TopLevel::closeEvent(QCloseEvent* /*event*/) {
  if (onCloseBox) onCloseBox();
}

}  // namespace kvrnstep::qt
