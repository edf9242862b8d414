#include <QHash>
#include <algorithm>
#include <array>
#include <utility>

#include "looks.h"
#include "text.h"

namespace kvrnstep::qt {

namespace {

/// The picture of a mouse cursor, and the point in it that points at things.
struct CursorFile {
  int resourceId = 0;
  std::string_view picture;
  QPoint hotSpot;
};
constexpr std::array kCursors{
    CursorFile{104, "cursor-104", {10, 1}},   // over what can be clicked
    CursorFile{106, "cursor-106", {16, 16}},  // while something is dragged
    CursorFile{107, "cursor-107", {16, 16}},  // over what can be dragged
};

}  // namespace

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio) {
  return pictureIcon(picture).pixmap(size, pixelRatio);
}

QIcon pictureIcon(forms::Picture picture) {
  if (picture.empty()) return {};
  // Each file is read once, and not with every dialog that opens.
  static QHash<QString, QIcon> read;
  QIcon& icon = read[toQt(picture)];
  if (icon.isNull()) icon = QIcon(":/listwright/" + toQt(picture) + ".png");
  return icon;
}

QCursor cursorOf(int resourceId, double pixelRatio) {
  constexpr QSize kSize(32, 32);
  const auto* found = std::ranges::find(kCursors, resourceId, &CursorFile::resourceId);
  if (found == kCursors.end()) return {};
  // Each is made once, because Qt keeps each cursor that it is given.
  static QHash<std::pair<int, double>, QCursor> made;
  const std::pair key(resourceId, pixelRatio);
  if (!made.contains(key)) {
    made[key] =
        QCursor(picture(found->picture, kSize, pixelRatio), found->hotSpot.x(), found->hotSpot.y());
  }
  return made[key];
}

}  // namespace kvrnstep::qt
