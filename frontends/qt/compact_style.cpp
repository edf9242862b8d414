#include "compact_style.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

namespace kvrnstep::qt {

namespace {

constexpr const char* kFusion = "fusion";

bool isCompact(const QStyle& style) {
  const QString name = style.name();
  return name == QLatin1String(kFusion) || name == QLatin1String("windows");
}

/// One for the whole process; it goes with the application.
QStyle* fusion() {
  static QStyle* const style = [] {
    QStyle* made = QStyleFactory::create(kFusion);
    made->setParent(QCoreApplication::instance());
    return made;
  }();
  return style;
}

}  // namespace

void useCompactStyle(QWidget& window) {
  if (isCompact(*QApplication::style())) return;
  window.setStyle(fusion());
  for (QWidget* part : window.findChildren<QWidget*>()) part->setStyle(fusion());
}

}  // namespace kvrnstep::qt
