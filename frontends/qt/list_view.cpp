#include "list_view.h"

#include <QScrollBar>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "forms/shown_entry.h"
#include "looks.h"
#include "mouse_releases.h"
#include "shapes.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

/// The selected entry of a list that has not the keyboard.
void drawQuietly(QPainter& painter, const QStyleOptionViewItem& entry) {
  constexpr int kFaint = 45;
  const Shades& shades = shadesOf(entry.palette);
  const QColor base = entry.palette.color(QPalette::Base);
  drawBox(painter, entry.rect,
          {mixed(base, shades.accent, kFaint), shades.accentOutline, 1, kSquare});
}

class EntryDelegate : public QStyledItemDelegate {
 public:
  EntryDelegate(const forms::ControlRow& row, QObject* parent)
      : QStyledItemDelegate(parent), row_(row) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem entry(option);
    initStyleOption(&entry, index);
    const QStyle& style = *entry.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &entry, entry.widget) + 1;
    const int room =
        style.subElementRect(QStyle::SE_ItemViewItemText, &entry, entry.widget).width() -
        2 * margin;
    entry.text = toQt(
        forms::shownEntry(row_, fromQt(entry.text), room, [&entry](const std::u16string& part) {
          return entry.fontMetrics.horizontalAdvance(toQt(part));
        }));
    if (entry.state.testFlag(QStyle::State_Selected) && !entry.widget->hasFocus() &&
        !isHighContrast(entry.palette)) {
      drawQuietly(*painter, entry);
      entry.state.setFlag(QStyle::State_Selected, false);
    }
    style.drawControl(QStyle::CE_ItemViewItem, &entry, painter, entry.widget);
  }

  /// A tip shows the whole entry if it is not drawn as a whole.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    if (event->type() != QEvent::ToolTip) {
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const bool whole = sizeHint(option, index).width() <= view->viewport()->width();
    QToolTip::showText(event->globalPos(), whole ? QString() : index.data().toString(), view);
    return true;
  }

 private:
  const forms::ControlRow& row_;
};

class EntryList : public MouseReleases<QListView> {
 public:
  EntryList(forms::ListBox& list, QWidget* parent) : MouseReleases(list, parent) {
    setModel(new QStringListModel(this));
    useFont(*this, captionFont());
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new EntryDelegate(list.row(), this));
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) {
      MouseReleases::mousePressEvent(event);
    } else {
      event->accept();
    }
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    const QModelIndex entry = indexAt(event->position().toPoint());
    // The first click may have been on another entry.
    const bool twice = !entry.isValid() || entry == currentIndex();
    MouseReleases::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || !twice) return;
    forms::userDoubleClickedEntry(static_cast<forms::ListBox&>(control()), entry.row());
  }
};

}  // namespace

ListView::ListView(WindowView& window, forms::ListBox& box)
    : ControlView(window, box, new EntryList(box, window.parentFor(box))) {
  QObject::connect(list().selectionModel(), &QItemSelectionModel::selectionChanged, &list(),
                   [this] { userSelectedEntry(selectedRow()); });
  QObject::connect(list().verticalScrollBar(), &QScrollBar::valueChanged, &list(),
                   [this] { userMayHaveScrolled(); });
}

/// Under the selected entry.
std::optional<forms::PixelPoint> ListView::menuPlace() const {
  const QRect entry = list().visualRect(list().model()->index(selectedRow(), 0));
  const QPoint below = list().viewport()->mapToGlobal(
      entry.isValid() ? entry.bottomLeft() + QPoint(8, 0) : QPoint(8, 8));
  return forms::PixelPoint{below.x(), below.y()};
}

int ListView::selectedRow() const {
  const auto rows = list().selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.front().row();
}

void ListView::setItems(const std::vector<std::u16string>& items) {
  showEntries(list().model(), items);
}

void ListView::setIndex(int index) {
  if (index == selectedRow()) return;
  if (index < 0) {
    list().selectionModel()->clear();
  } else {
    list().setCurrentIndex(list().model()->index(index, 0));
  }
}

void ListView::setTopIndex(int index) {
  // Qt would adapt the scroll bar later, which would look as if the user had scrolled.
  list().doItemsLayout();
  list().verticalScrollBar()->setValue(index);
}

forms::Scroll ListView::scroll() const {
  const QScrollBar& bar = *list().verticalScrollBar();
  return {bar.value(), bar.maximum()};
}

}  // namespace kvrnstep::qt
