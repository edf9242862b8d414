#include "combo_view.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QListView>

#include "compact_style.h"
#include "forms/user_actions.h"
#include "qt_fonts.h"
#include "text.h"
#include "text/text.h"
#include "text_views.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

namespace {

/// Stands in for the completer that a box makes for an edit without one: it is of no use here, and
/// takes as long to make as the box.
QCompleter* placeholder() {
  static auto* const completer = new QCompleter(QCoreApplication::instance());
  return completer;
}

}  // namespace

/// A combo box that drops down a long list at once. What drops down is not made before.
class EntryCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

  void takeEdit(QLineEdit* edit) {
    edit->setCompleter(placeholder());
    setLineEdit(edit);
    edit->setCompleter(nullptr);
  }

  void showPopup() override {
    useFont(*view(), font());
    useCompactStyle(*view()->window());
    // Otherwise every entry would be measured first.
    if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
    QComboBox::showPopup();
  }
};

ComboView::ComboView(WindowView& window, forms::ComboBox& combo)
    : ControlView(window, combo),
      box_(new EntryCombo(window.parentFor(combo))),
      entries_(new EntriesModel(box_)),
      edit_(new LineEdit(combo, box_)) {
  adopt(box_);
  useFont(*box_, captionFont());
  box_->takeEdit(edit_);
  box_->setModel(entries_);
  box_->setInsertPolicy(QComboBox::NoInsert);
  edit_->setAccessibleName(box_->accessibleName());
  // Leaving the box with a text that is also an entry would count as choosing that entry.
  QObject::disconnect(edit_, SIGNAL(editingFinished()), box_, nullptr);
  QObject::connect(box_, &QComboBox::activated, box_, [this](int index) { chosen(index); });
}

void ComboView::chosen(int index) {
  if (applying()) return;
  mark(Property::Index);
  forms::userChose(combo(), index);
}

void ComboView::setItems(const std::vector<std::u16string>& items) {
  entries_->show(items);
}

void ComboView::setIndex(int index) {
  if (box_->currentIndex() != index) box_->setCurrentIndex(index);
}

}  // namespace kvrnstep::qt
