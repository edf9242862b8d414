#include "list_view.h"

#include <QScrollBar>
#include <QStringListModel>

#include "looks.h"
#include "mouse_releases.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

class EntryList : public MouseReleases<QListView> {
 public:
  EntryList(forms::ListBox& list, QWidget* parent) : MouseReleases(list, parent) {
    setModel(new QStringListModel(this));
    useFont(*this, captionFont());
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setUniformItemSizes(true);
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
QPoint ListView::menuPlace() const {
  const QRect entry = list().visualRect(list().model()->index(selectedRow(), 0));
  const QPoint below = entry.isValid() ? entry.bottomLeft() + QPoint(8, 0) : QPoint(8, 8);
  return list().viewport()->mapToGlobal(below);
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
