#include <QCache>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QHash>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "forms/window.h"
#include "looks.h"
#include "text.h"

namespace kvrnstep::qt {

namespace {

constexpr int kCaptionHeight = 11;

/// Asking Qt about one family takes as long as asking for all. If several makers have a family of
/// the same name, Qt adds the maker to the name.
bool isInstalled(const QString& family) {
  static const QStringList all = QFontDatabase::families();
  return std::ranges::any_of(all, [&](const QString& installed) {
    return installed == family || installed.startsWith(family + " [");
  });
}

QString firstInstalled(std::initializer_list<const char*> families,
                       QFontDatabase::SystemFont otherwise) {
  for (const char* family : families) {
    if (isInstalled(family)) return family;
  }
  return QFontDatabase::systemFont(otherwise).family();
}

const QString& captionFamily() {
  static const QString family =
      firstInstalled({"Tahoma", "MS Sans Serif", "Arial", "Liberation Sans", "Noto Sans",
                      "Cantarell", "DejaVu Sans Condensed", "DejaVu Sans"},
                     QFontDatabase::GeneralFont);
  return family;
}

/// What stands for a family that is not installed. Other families than those that are often asked
/// for get a fixed pitch, because they are an editor's font, and a list has to line up.
QString substitute(const QString& name) {
  static constexpr auto kProportional =
      std::to_array<const char*>({"MS Sans Serif", "Microsoft Sans Serif", "Tahoma", "Arial",
                                  "Helvetica", "Verdana", "Segoe UI", "Calibri", "MS Shell Dlg"});
  const bool proportional = std::ranges::any_of(kProportional, [&](const char* family) {
    return name.compare(QLatin1String(family), Qt::CaseInsensitive) == 0;
  });
  if (proportional) return captionFamily();
  if (name.compare("Times New Roman", Qt::CaseInsensitive) == 0) return "Liberation Serif";
  // Qt may know it by another name.
  if (QFontDatabase::hasFamily(name)) return name;
  return firstInstalled({"Courier New", "Liberation Mono", "DejaVu Sans Mono"},
                        QFontDatabase::FixedFont);
}

/// The family that stands for a name. Each name is looked up once, because asking the system takes
/// longer than making a box.
const QString& installedFamily(const QString& name) {
  static QHash<QString, QString> known;
  auto found = known.find(name);
  if (found == known.end()) {
    found = known.insert(name, isInstalled(name) ? name : substitute(name));
  }
  return *found;
}

bool fits(const QFont& font, const QString& text, int width) {
  return QFontMetrics(font).horizontalAdvance(text) <= width;
}

/// The caption font, squeezed first, then smaller, until the text fits.
QFont squeezed(const QString& text, int width) {
  constexpr int kNarrowest = 70;
  constexpr int kSqueeze = 3;
  constexpr int kSmallest = 6;
  QFont font = captionFont();
  for (int stretch = 100 - kSqueeze; !fits(font, text, width) && stretch >= kNarrowest;
       stretch -= kSqueeze) {
    font.setStretch(stretch);
  }
  while (!fits(font, text, width) && font.pixelSize() > kSmallest) {
    font.setPixelSize(font.pixelSize() - 1);
  }
  return font;
}

}  // namespace

QFont captionFont() {
  QFont font(captionFamily());
  font.setPixelSize(kCaptionHeight);
  return font;
}

QFont boxFont(std::u16string_view name, float points) {
  QFont font = captionFont();
  if (!name.empty()) font.setFamily(installedFamily(toQt(name)));
  if (points > 0) font.setPixelSize(std::max(1, qRound(points * forms::kPixelsPerPoint)));
  return font;
}

void useFont(QWidget& widget, const QFont& font) {
  if (widget.font() != font) widget.setFont(font);
}

QFont fittedCaptionFont(const QString& text, int width) {
  constexpr int kMostKnown = 500;
  static QCache<std::pair<QString, int>, QFont> known(kMostKnown);
  const std::pair key(text, width);
  if (const QFont* font = known.object(key)) return *font;
  const QFont font = squeezed(text, width);
  known.insert(key, new QFont(font));
  return font;
}

}  // namespace kvrnstep::qt
