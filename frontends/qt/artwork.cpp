#include "artwork.h"

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
  using forms::Picture;
  switch (picture) {
    case Picture::Numbered:
      return ":/listwright/numbered.png";
    case Picture::Alphabetical:
      return ":/listwright/alphabetical.png";
    case Picture::Roman:
      return ":/listwright/roman.png";
    case Picture::PrefixSuffix:
      return ":/listwright/prefix-suffix.png";
    case Picture::ApplyActive:
      return ":/listwright/apply-active.png";
    case Picture::ApplyInactive:
      return ":/listwright/apply-inactive.png";
    case Picture::ArrowUp:
      return ":/listwright/arrow-up.png";
    case Picture::ArrowDown:
      return ":/listwright/arrow-down.png";
    case Picture::None:
      break;
  }
  return {};
}

}  // namespace

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio) {
  return QIcon(pictureFile(picture)).pixmap(size, pixelRatio);
}

QIcon pictureIcon(forms::Picture picture) {
  return QIcon(pictureFile(picture));
}

QCursor cursorOf(int resourceId, double pixelRatio) {
  const auto* found = std::ranges::find(kCursors, resourceId, &CursorFile::resourceId);
  if (found == kCursors.end()) return {};
  const QPixmap drawn = QIcon(found->file).pixmap(kCursorSize, pixelRatio);
  return QCursor(drawn, found->hotSpot.x(), found->hotSpot.y());
}

void applyCursor(QWidget& widget, int resourceId) {
  if (resourceId == 0) {
    widget.unsetCursor();
  } else {
    widget.setCursor(cursorOf(resourceId, widget.devicePixelRatioF()));
  }
}

QIcon windowIcon() {
  return QIcon(":/listwright/listwright.png");
}

}  // namespace kvrnstep::qt
