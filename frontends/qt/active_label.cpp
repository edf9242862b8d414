#include "active_label.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QShortcutEvent>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace kvrnstep::qt {

namespace {

QAccessible::Role roleOf(const ActiveLabel& label) {
  return label.hasPicture() ? QAccessible::Button : QAccessible::Link;
}

class PressableLabel : public QAccessibleWidget {
 public:
  explicit PressableLabel(ActiveLabel& label)
      : QAccessibleWidget(&label, roleOf(label)), label_(label) {}

  [[nodiscard]] QStringList actionNames() const override {
    if (!label_.isEnabled()) return {};
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    if (label_.isEnabled()) label_.onActivated();
  }

 private:
  ActiveLabel& label_;
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
  if (className != QLatin1String("QLabel")) return nullptr;
  auto* label = dynamic_cast<ActiveLabel*>(object);
  return label == nullptr || !label->onActivated ? nullptr : new PressableLabel(*label);
}

}  // namespace

void announceActiveLabels() {
  // Qt takes the same factory once only.
  QAccessible::installFactory(describe);
}

void ActiveLabel::showText(const QString& text) {
  setText(text);
  if (shortcut_ != 0) releaseShortcut(shortcut_);
  const QKeySequence mnemonic = QKeySequence::mnemonic(text);
  shortcut_ = onActivated && !mnemonic.isEmpty() ? grabShortcut(mnemonic) : 0;
}

bool ActiveLabel::hasPicture() const {
  return !pixmap(Qt::ReturnByValue).isNull();
}

bool ActiveLabel::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut &&
      static_cast<QShortcutEvent*>(event)->shortcutId() == shortcut_ && shortcut_ != 0) {
    onActivated();
    return true;
  }
  return MouseReleases<QLabel>::event(event);
}

void ActiveLabel::paintEvent(QPaintEvent* event) {
  if (!onActivated) return MouseReleases<QLabel>::paintEvent(event);
  QPainter painter(this);
  if (hasPicture()) {
    MouseReleases<QLabel>::paintEvent(event);
  } else {
    const int flags = static_cast<int>(alignment()) | Qt::TextShowMnemonic;
    style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), text(),
                          QPalette::WindowText);
  }
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  option.backgroundColor = palette().color(QPalette::Window);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

// A plain label would begin to edit its text.
void ActiveLabel::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
}

void ActiveLabel::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
}

}  // namespace kvrnstep::qt
