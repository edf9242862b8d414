#include "artwork.h"

#include <QCursor>
#include <QString>

namespace kvrnstep::qt {

namespace {

constexpr int kHandCursor = 104;
constexpr QSize kHandSize(32, 32);
constexpr QPoint kFingerTip(10, 1);

QString pictureFile(forms::Picture picture) {
  switch (picture) {
    case forms::Picture::Numbered:
      return ":/listwright/numbered.png";
    case forms::Picture::Alphabetical:
      return ":/listwright/alphabetical.png";
    case forms::Picture::Roman:
      return ":/listwright/roman.png";
    case forms::Picture::PrefixSuffix:
      return ":/listwright/prefix-suffix.png";
    case forms::Picture::None:
      break;
  }
  return {};
}

}  // namespace

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio) {
  return QIcon(pictureFile(picture)).pixmap(size, pixelRatio);
}

void applyCursor(QWidget& widget, int resourceId) {
  if (resourceId != kHandCursor) {
    widget.unsetCursor();
    return;
  }
  const QPixmap hand =
      QIcon(":/listwright/cursor-104.png").pixmap(kHandSize, widget.devicePixelRatioF());
  widget.setCursor(QCursor(hand, kFingerTip.x(), kFingerTip.y()));
}

QIcon windowIcon() {
  return QIcon(":/listwright/listwright.png");
}

}  // namespace kvrnstep::qt
