#include <QApplication>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>

#include "looks.h"

namespace kvrnstep::qt {

namespace {

/// One for all windows; it ends with the application.
QStyle* fusion() {
  static QPointer<QStyle> style;
  if (style.isNull()) {
    style = QStyleFactory::create("fusion");
    style->setParent(QCoreApplication::instance());
  }
  return style;
}

}  // namespace

void useCompactStyle(QWidget& window) {
  const QString own = QApplication::style()->name();
  if (own == QLatin1String("fusion") || own == QLatin1String("windows")) return;
  window.setStyle(fusion());
  for (QWidget* part : window.findChildren<QWidget*>()) part->setStyle(fusion());
}

}  // namespace kvrnstep::qt
