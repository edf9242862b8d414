#include <QFile>
#include <QHash>
#include <QImage>
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

QPixmap picture(forms::Picture picture, QSize size, double pixelRatio, const QPalette& palette) {
  const QString name = toQt(picture);
  if (isHighContrast(palette)) {
    return inColors(iconOf(name).pixmap(size, pixelRatio), palette.color(QPalette::WindowText),
                    palette.color(QPalette::Window));
  }
  const QIcon& darkOne = isDark(palette) ? iconOf(name + "-dark") : iconOf(name);
  return (darkOne.isNull() ? iconOf(name) : darkOne).pixmap(size, pixelRatio);
}

QPixmap inColors(const QPixmap& picture, const QColor& marks, const QColor& ground) {
  // No mark and no line of the drawings is brighter.
  constexpr int kBrightestMark = 150;
  constexpr int kWhite = 255;
  QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb dot = image.pixel(x, y);
      const int above = std::max(qGray(dot) - kBrightestMark, 0);
      QColor color = mixed(marks, ground, above * 100 / (kWhite - kBrightestMark));
      color.setAlpha(qAlpha(dot));
      image.setPixelColor(x, y, color);
    }
  }
  return QPixmap::fromImage(image);
}

QIcon pictureIcon(forms::Picture picture) {
  return picture.empty() ? QIcon() : iconOf(toQt(picture));
}

const QIcon& windowIcon() {
  static const QIcon icon = [] {
    QIcon made;
    // Each is drawn for its size, and read when a desktop asks for it.
    for (const int size : {16, 24, 32, 48, 64}) {
      made.addFile(QStringLiteral(":/listwright/program/%1.png").arg(size), {size, size});
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
    made[key] = QCursor(iconOf(toQt(found->picture)).pixmap(kSize, pixelRatio), found->hotSpot.x(),
                        found->hotSpot.y());
  }
  return made[key];
}

}  // namespace kvrnstep::qt
