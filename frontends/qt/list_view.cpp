#include "list_view.h"

#include <QScrollBar>
#include <algorithm>

#include "entries_text.h"
#include "forms/user_actions.h"
#include "qt_fonts.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

void EntryList::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    MouseReleases<QListWidget>::mousePressEvent(event);
  } else {
    event->accept();
  }
}

ListView::ListView(WindowView& window, forms::ListBox& list)
    : ControlView(window, list), widget_(new EntryList(window.parentFor(list))) {
  adopt(widget_);
  widget_->setFont(captionFont());
  widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  widget_->setUniformItemSizes(true);
  widget_->onReleased = [this](forms::MouseButton button) {
    forms::userReleasedMouse(control(), button);
  };
  QObject::connect(widget_, &QListWidget::itemSelectionChanged, widget_, [this] { selected(); });
  QObject::connect(widget_, &QListWidget::itemDoubleClicked, widget_,
                   [this](const QListWidgetItem* item) {
                     forms::userDoubleClickedEntry(this->list(), widget_->row(item));
                   });
  QObject::connect(widget_->verticalScrollBar(), &QScrollBar::valueChanged, widget_,
                   [this](int value) {
                     if (!applying()) forms::userScrolled(this->list(), value);
                   });
}

QRect ListView::place() const {
  QRect place = ControlView::place();
  const int lowest = window().innerHeight() - 1;
  if (control().container() == nullptr && place.top() < lowest) {
    place.setHeight(std::min(place.height(), lowest - place.top()));
  }
  return place;
}

int ListView::selectedRow() const {
  const auto items = widget_->selectedItems();
  return items.isEmpty() ? -1 : widget_->row(items.front());
}

void ListView::selected() {
  if (applying()) return;
  // The control may refuse; a selection that was taken away comes back.
  mark(Property::Index);
  forms::userClickedEntry(list(), selectedRow());
}

void ListView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Items)) applyEntries();
  if (changes.has(Property::Items) || changes.has(Property::Index)) applyIndex();
  if (changes.has(Property::Items) || changes.has(Property::TopIndex)) applyTopIndex();
}

void ListView::applyEntries() {
  if (sameEntries(*widget_->model(), list().entries())) return;
  widget_->clear();
  widget_->addItems(entryTexts(list().entries()));
}

void ListView::applyIndex() {
  const int index = list().entries().selected();
  if (index == selectedRow()) return;
  if (index < 0) {
    widget_->clearSelection();
    widget_->setCurrentItem(nullptr);
  } else {
    widget_->setCurrentRow(index);
  }
}

void ListView::applyTopIndex() {
  // Otherwise the range of the scroll bar would follow later, as if the user had scrolled.
  widget_->doItemsLayout();
  widget_->verticalScrollBar()->setValue(list().topIndex());
}

std::optional<forms::PropertyValue> ListView::shown(Property property) const {
  switch (property) {
    case Property::Items:
      return joinedEntries(*widget_->model());
    case Property::Index:
      return static_cast<double>(selectedRow());
    case Property::TopIndex: {
      // Scrolled as far as the list reaches is as good as scrolled further.
      const QScrollBar& bar = *widget_->verticalScrollBar();
      const bool asFarAsItGoes = bar.value() == std::min(list().topIndex(), bar.maximum());
      return static_cast<double>(asFarAsItGoes ? list().topIndex() : bar.value());
    }
    default:
      return ControlView::shown(property);
  }
}

}  // namespace kvrnstep::qt
