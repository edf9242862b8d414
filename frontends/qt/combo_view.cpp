#include "combo_view.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QListView>
#include <QPointer>
#include <QStringListModel>

#include "line_edit.h"
#include "looks.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

/// A box makes a completer for an edit that has none, which takes as long as making the box, and no
/// completer is wanted here. So the edit has this one while it comes into the box. It ends with the
/// application.
QCompleter* placeholder() {
  static QPointer<QCompleter> completer;
  if (completer.isNull()) completer = new QCompleter(QCoreApplication::instance());
  return completer;
}

/// A combo box that drops down a long list at once.
class EntryCombo : public QComboBox {
 public:
  EntryCombo(forms::ComboBox& combo, QWidget* parent) : QComboBox(parent) {
    auto* edit = new LineEdit(combo, this);
    edit->setCompleter(placeholder());
    setLineEdit(edit);
    edit->setCompleter(nullptr);
    useFont(*this, captionFont());
    setModel(new QStringListModel(this));
    edit->setPlaceholderText(toQt(combo.row().hint));
    setInsertPolicy(QComboBox::NoInsert);
    // Otherwise leaving the box with a text that is also an entry would choose that entry.
    disconnect(edit, SIGNAL(editingFinished()), this, nullptr);
  }

  void showPopup() override {
    useFont(*view(), font());
    useWindowStyle(*view()->window());
    // Otherwise Qt would measure every entry first.
    if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
    QComboBox::showPopup();
  }

  /// Qt first asks who wants Escape, and closes the list on that. Then it sends the key itself, to
  /// the box if it was pressed before the list had the keyboard.
  void hidePopup() override {
    QComboBox::hidePopup();
    closing_ = true;
    QMetaObject::invokeMethod(
        this, [this] { closing_ = false; }, Qt::QueuedConnection);
  }

  [[nodiscard]] bool closing() const { return closing_; }

 protected:
  void changeEvent(QEvent* event) override {
    // With a style of its own a box would make the list that drops down, which most never show.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    if (event->type() == QEvent::StyleChange) return QWidget::changeEvent(event);
    QComboBox::changeEvent(event);
  }

 private:
  bool closing_ = false;
};

}  // namespace

ComboView::ComboView(WindowView& window, forms::ComboBox& combo)
    : ControlView(window, combo, new EntryCombo(combo, window.parentFor(combo))) {
  box().lineEdit()->setAccessibleName(box().accessibleName());
  QObject::connect(&box(), &QComboBox::activated, &box(),
                   [this](int index) { userSelectedEntry(index); });
}

bool ComboView::usesKeys() const {
  return static_cast<const EntryCombo&>(box()).closing();
}

forms::TextSync* ComboView::text() {
  return static_cast<LineEdit*>(box().lineEdit());
}

void ComboView::setItems(const std::vector<std::u16string>& items) {
  showEntries(box().model(), items);
}

void ComboView::setIndex(int index) {
  // Qt would put the entry into the box again.
  if (box().currentIndex() != index) box().setCurrentIndex(index);
}

}  // namespace kvrnstep::qt
