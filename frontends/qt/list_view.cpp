#include "list_view.h"

#include <QScrollBar>

#include "forms/user_actions.h"
#include "qt_fonts.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

void EntryList::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    MouseReleases<QListView>::mousePressEvent(event);
  } else {
    event->accept();
  }
}

void EntryList::mouseDoubleClickEvent(QMouseEvent* event) {
  const bool beside = !indexAt(event->position().toPoint()).isValid();
  MouseReleases<QListView>::mouseDoubleClickEvent(event);
  // The list itself tells of double clicks on entries only.
  if (beside && event->button() == Qt::LeftButton) onDoubleClickedBesideEntries();
}

ListView::ListView(WindowView& window, forms::ListBox& list)
    : ControlView(window, list),
      widget_(new EntryList(window.parentFor(list))),
      entries_(new EntriesModel(widget_)) {
  adopt(widget_);
  widget_->setModel(entries_);
  useFont(*widget_, captionFont());
  widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  widget_->setUniformItemSizes(true);
  widget_->onReleased = [this](forms::MouseButton button) {
    forms::userReleasedMouse(control(), button);
  };
  QObject::connect(widget_->selectionModel(), &QItemSelectionModel::selectionChanged, widget_,
                   [this] { userSelectedEntry(selectedRow()); });
  QObject::connect(widget_, &QListView::doubleClicked, widget_, [this](const QModelIndex& entry) {
    forms::userDoubleClickedEntry(this->list(), entry.row());
  });
  widget_->onDoubleClickedBesideEntries = [this] {
    forms::userDoubleClickedEntry(this->list(), -1);
  };
  QObject::connect(widget_->verticalScrollBar(), &QScrollBar::valueChanged, widget_,
                   [this] { userMayHaveScrolled(); });
}

/// Under the selected entry.
QPoint ListView::menuPlace() const {
  const QRect entry = widget_->visualRect(entries_->index(selectedRow()));
  const QPoint below = entry.isValid() ? entry.bottomLeft() + QPoint(8, 0) : QPoint(8, 8);
  return widget_->viewport()->mapToGlobal(below);
}

int ListView::selectedRow() const {
  const auto rows = widget_->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.front().row();
}

void ListView::setItems(const std::vector<std::u16string>& items) {
  entries_->show(items);
}

void ListView::setIndex(int index) {
  if (index == selectedRow()) return;
  if (index < 0) {
    widget_->selectionModel()->clear();
  } else {
    widget_->setCurrentIndex(entries_->index(index));
  }
}

void ListView::setTopIndex(int index) {
  // Otherwise the range of the scroll bar would follow later, as if the user had scrolled.
  widget_->doItemsLayout();
  widget_->verticalScrollBar()->setValue(index);
}

forms::Scroll ListView::scroll() const {
  const QScrollBar& bar = *widget_->verticalScrollBar();
  return {bar.value(), bar.maximum()};
}

}  // namespace kvrnstep::qt
