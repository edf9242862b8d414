#include "artwork.h"

#include <QHash>
#include <QString>
#include <algorithm>
#include <array>

namespace kvrnstep::qt {

namespace {

/// A mouse cursor and the point of it that points.
struct CursorFile {
  int resourceId = 0;
  const char* file = nullptr;
  QPoint hotSpot;
};
constexpr QSize kCursorSize(32, 32);
constexpr std::array kCursors{
    CursorFile{104, ":/listwright/cursor-104.png", {10, 1}},   // a hand that points
    CursorFile{106, ":/listwright/cursor-106.png", {16, 16}},  // one that carries something
    CursorFile{107, ":/listwright/cursor-107.png", {16, 16}},  // one that may take something
};

QString pictureFile(forms::Picture picture) {
  if (picture.empty()) return {};
  return ":/listwright/" + QString::fromLatin1(picture.data(), picture.size()) + ".png";
}

/// Each file is read once, and not with every dialog that opens.
const QIcon& iconFrom(const QString& file) {
  static QHash<QString, QIcon> read;
  auto found = read.find(file);
  if (found == read.end()) found = read.insert(file, QIcon(file));
  return *found;
}

}  // namespace

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio) {
  return iconFrom(pictureFile(picture)).pixmap(size, pixelRatio);
}

QIcon pictureIcon(forms::Picture picture) {
  return iconFrom(pictureFile(picture));
}

QCursor cursorOf(int resourceId, double pixelRatio) {
  const auto* found = std::ranges::find(kCursors, resourceId, &CursorFile::resourceId);
  if (found == kCursors.end()) return {};
  static QHash<QPair<int, double>, QCursor> made;
  auto known = made.find({resourceId, pixelRatio});
  if (known == made.end()) {
    const QPixmap drawn = iconFrom(found->file).pixmap(kCursorSize, pixelRatio);
    known = made.insert({resourceId, pixelRatio},
                        QCursor(drawn, found->hotSpot.x(), found->hotSpot.y()));
  }
  return *known;
}

void applyCursor(QWidget& widget, int resourceId) {
  if (resourceId == 0) {
    widget.unsetCursor();
  } else {
    widget.setCursor(cursorOf(resourceId, widget.devicePixelRatioF()));
  }
}

QIcon windowIcon() {
  return iconFrom(":/listwright/listwright.png");
}

}  // namespace kvrnstep::qt
