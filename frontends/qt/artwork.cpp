#include <QFile>
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

/// Each file is read once, and not with every dialog that opens. Null where there is none.
const QIcon& iconOf(const QString& name) {
  static QHash<QString, QIcon> read;
  auto found = read.find(name);
  if (found == read.end()) {
    const QString file = ":/listwright/" + name + ".png";
    found = read.insert(name, QFile::exists(file) ? QIcon(file) : QIcon());
  }
  return *found;
}

}  // namespace

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio, bool dark) {
  const QString name = toQt(picture);
  const QIcon& darkOne = dark ? iconOf(name + "-dark") : iconOf(name);
  return (darkOne.isNull() ? iconOf(name) : darkOne).pixmap(size, pixelRatio);
}

QIcon pictureIcon(forms::Picture picture) {
  return picture.empty() ? QIcon() : iconOf(toQt(picture));
}

const QIcon& windowIcon() {
  static const QIcon icon = [] {
    QIcon made;
    // Each is drawn for its size.
    for (const int size : {16, 24, 32, 48, 64}) {
      made.addFile(QStringLiteral(":/listwright/program/%1.png").arg(size));
    }
    return made;
  }();
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
    made[key] = QCursor(picture(found->picture, kSize, pixelRatio, false), found->hotSpot.x(),
                        found->hotSpot.y());
  }
  return made[key];
}

}  // namespace kvrnstep::qt
