#include "contrast.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

#include "forms/contrast.h"

namespace kvrnstep::pictures {

namespace {

/// A picture of a window, asked in logical pixels.
class Picture {
 public:
  explicit Picture(QWidget& window)
      : window_(window), image_(window.grab().toImage()), scale_(image_.devicePixelRatio()) {}

  /// How far what is drawn in the place stands out from its ground, the most frequent colour.
  [[nodiscard]] double contrastIn(const QWidget& widget, const QRect& place) const {
    const QRect dots = dotsOf(widget, place);
    QHash<QRgb, int> counts;
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
      for (int x = dots.left(); x <= dots.right(); ++x) ++counts[image_.pixel(x, y)];
    }
    const QRgb ground = std::ranges::max_element(counts).key();
    double most = 1;
    for (const QRgb color : counts.keys()) most = std::max(most, contrast(color, ground));
    return most;
  }

  /// How far the edge at the left of the place stands out from what is beside it.
  [[nodiscard]] double contrastOfEdge(const QWidget& widget, const QRect& place) const {
    constexpr int kInside = 3;
    const QRect edge(place.left(), place.center().y(), kInside, 1);
    const QRect dots = dotsOf(widget, edge);
    const QRgb beside = window_.palette().color(QPalette::Window).rgb();
    double most = 1;
    for (int x = dots.left(); x <= dots.right(); ++x) {
      most = std::max(most, contrast(image_.pixel(x, dots.top()), beside));
    }
    return most;
  }

 private:
  [[nodiscard]] QRect dotsOf(const QWidget& widget, const QRect& place) const {
    const QRect inWindow(widget.mapTo(&window_, place.topLeft()), place.size());
    const QRect dots((QPointF(inWindow.topLeft()) * scale_).toPoint(), inWindow.size() * scale_);
    return dots & image_.rect();
  }
  static double contrast(QRgb one, QRgb other) {
    const auto rgb = [](QRgb color) {
      return forms::Rgb{qRed(color), qGreen(color), qBlue(color)};
    };
    return forms::contrast(rgb(one), rgb(other));
  }

  QWidget& window_;
  QImage image_;
  double scale_;
};

bool isField(const QWidget& widget) {
  return widget.inherits("QPlainTextEdit") || widget.inherits("QListView") ||
         widget.inherits("QComboBox") || widget.inherits("QLineEdit");
}

bool hasIndicator(const QWidget& widget) {
  return widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
}

constexpr int kIndicator = 18;

/// The place of the text alone; empty where there is none.
QRect textPlace(const QWidget& widget) {
  constexpr int kBorder = 4;
  constexpr int kArrow = 24;
  QRect place = widget.rect().adjusted(kBorder, kBorder / 2, -kBorder, -kBorder / 2);
  if (hasIndicator(widget)) place.setLeft(kIndicator);
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    place.setRight(place.right() - kArrow);
    return combo->currentText().isEmpty() && combo->lineEdit()->placeholderText().isEmpty()
               ? QRect()
               : place;
  }
  if (widget.inherits("QMenuBar")) return place;
  if (const auto* box = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return box->toPlainText().isEmpty() ? QRect() : place;
  }
  const QString text = widget.property("text").toString();
  return text.isEmpty() ? QRect() : place;
}

std::string kindOfText(const QWidget& widget) {
  if (!widget.isEnabled()) return "texts, disabled";
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    return combo->currentText().isEmpty() ? "hint in an empty box" : "texts";
  }
  if (widget.objectName() == "cmdCIC(0)") return "text of Insert";
  if (widget.inherits("QLabel") && widget.font().underline()) {
    return widget.underMouse() ? "links under the mouse" : "links";
  }
  return "texts";
}

void note(Contrasts& found, const std::string& kind, double contrast) {
  const auto [entry, isNew] = found.emplace(kind, contrast);
  if (!isNew) entry->second = std::min(entry->second, contrast);
}

void measureEntries(const Picture& picture, const QListView& list, Contrasts& found) {
  const std::string selected =
      list.hasFocus() ? "selected entry" : "selected entry, keyboard elsewhere";
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    const QModelIndex index = list.model()->index(row, 0);
    const QRect place = list.visualRect(index);
    const bool isSelected = list.selectionModel()->isSelected(index);
    note(found, isSelected ? selected : "texts", picture.contrastIn(*list.viewport(), place));
    if (!isSelected) continue;
    note(found, "outline of the selected entry", picture.contrastOfEdge(*list.viewport(), place));
  }
}

void measureText(const Picture& picture, const QWidget& widget, Contrasts& found) {
  if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    return measureEntries(picture, *list, found);
  }
  const QRect place = textPlace(widget);
  if (!place.isEmpty()) note(found, kindOfText(widget), picture.contrastIn(widget, place));
}

/// What is drawn on buttons without a text, and what tells that an option is chosen.
void measureSign(const Picture& picture, const QWidget& widget, Contrasts& found) {
  constexpr int kBorder = 4;
  constexpr int kMark = 8;
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  const auto* label = qobject_cast<const QLabel*>(&widget);
  std::string kind;
  QRect place = widget.rect().adjusted(kBorder, 2, -kBorder, -2);
  if (hasIndicator(widget)) {
    if (!button->isChecked()) return;
    kind = "marks of options";
    place = QRect(kBorder - 1, (widget.height() - kMark) / 2, kMark, kMark);
  } else if (button != nullptr && button->text().isEmpty()) {
    kind = "signs on buttons";
  } else if (label != nullptr && !label->pixmap(Qt::ReturnByValue).isNull()) {
    kind = "signs in pictures";
  } else {
    return;
  }
  if (!widget.isEnabled()) kind += ", disabled";
  note(found, kind, picture.contrastIn(widget, place));
}

void measureEdge(const Picture& picture, const QWidget& widget, Contrasts& found) {
  const bool button = qobject_cast<const QAbstractButton*>(&widget) != nullptr;
  if (!isField(widget) && !button && widget.cursor().shape() != Qt::BitmapCursor) return;
  if (widget.inherits("QLabel") && widget.font().underline()) return;
  std::string kind = isField(widget)             ? "outlines of boxes and lists"
                     : hasIndicator(widget)      ? "outlines of options"
                     : widget.inherits("QLabel") ? "outlines of macros and pictures"
                                                 : "outlines of buttons";
  if (!widget.isEnabled()) kind += ", disabled";
  note(found, kind, picture.contrastOfEdge(widget, widget.rect()));
}

/// The ring is on the edge of a control or up to two pixels beside it.
void measureRing(QWidget& window, QWidget& widget, Contrasts& found) {
  widget.setFocus();
  if (QApplication::focusWidget() != &widget) return;
  constexpr int kBeside = 3;
  const Picture ringed(window);
  // That of options is around the caption.
  const int beside = hasIndicator(widget) ? kIndicator - kBeside : 0;
  const QRect place = widget.rect().translated(beside, 0);
  note(found, "ring around what has the keyboard",
       std::max(ringed.contrastOfEdge(widget, place),
                ringed.contrastOfEdge(widget, place.translated(-kBeside, 0))));
  if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    measureEntries(ringed, *list, found);
  }
}

}  // namespace

void measure(QWidget& window, Contrasts& found) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool part = qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr;
    if (widget->isVisibleTo(&window) && !part && !widget->visibleRegion().isEmpty()) {
      controls.push_back(widget);
    }
  }
  // Without a ring anywhere.
  if (QWidget* focus = window.focusWidget()) focus->clearFocus();
  const Picture idle(window);
  for (const QWidget* widget : controls) {
    measureText(idle, *widget, found);
    measureEdge(idle, *widget, found);
    measureSign(idle, *widget, found);
  }
  for (QWidget* widget : controls) widget->setAttribute(Qt::WA_UnderMouse);
  const Picture hovered(window);
  for (const QWidget* widget : controls) measureText(hovered, *widget, found);
  for (QWidget* widget : controls) widget->setAttribute(Qt::WA_UnderMouse, false);
  for (QWidget* widget : controls) {
    if (widget->focusPolicy() != Qt::NoFocus && widget->isEnabled()) {
      measureRing(window, *widget, found);
    }
  }
}

double leastContrast(const std::string& kind) {
  constexpr double kFaint = 1.5;
  const auto isOf = [&kind](std::string_view thing) { return kind.starts_with(thing); };
  // Paler than those of what can be used, but there.
  if (isOf("outlines") && kind.ends_with("disabled")) return kFaint;
  const bool text = !isOf("outline") && !isOf("ring") && !isOf("marks") && !isOf("signs");
  return text ? forms::kReadable : forms::kVisible;
}

}  // namespace kvrnstep::pictures
