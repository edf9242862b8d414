#include "active_label.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QShortcutEvent>
#include <QStyle>

#include "qt_colors.h"
#include "text.h"
#include "text/text.h"

namespace kvrnstep::qt {

namespace {

class PressableLabel : public QAccessibleWidget {
 public:
  using Relation = QPair<QAccessibleInterface*, QAccessible::Relation>;

  explicit PressableLabel(ActiveLabel& label)
      : QAccessibleWidget(&label, label.role()), label_(label) {}

  [[nodiscard]] QStringList actionNames() const override {
    if (!label_.isEnabled()) return {};
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    // Whoever asked for it gets an answer first: what opens now may stay open for long.
    QMetaObject::invokeMethod(
        &label_,
        [&label = label_] {
          if (label.isEnabled()) label.activate();
        },
        Qt::QueuedConnection);
  }
  [[nodiscard]] QList<Relation> relations(QAccessible::Relation match) const override {
    QList<Relation> all = QAccessibleWidget::relations(match);
    QWidget* box = label_.buddy();
    if (box != nullptr && match.testFlag(QAccessible::Labelled)) {
      all.append({QAccessible::queryAccessibleInterface(box), QAccessible::Labelled});
    }
    return all;
  }

 private:
  ActiveLabel& label_;
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
  if (className != QLatin1String("QLabel")) return nullptr;
  auto* label = dynamic_cast<ActiveLabel*>(object);
  return label == nullptr || !label->canBeActivated() ? nullptr : new PressableLabel(*label);
}

/// A frame inside the rectangle.
void paintFrame(QPainter& painter, const QRect& rect, const QPen& pen, const QBrush& ground) {
  constexpr double kRound = 2;
  const double half = pen.widthF() / 2;
  painter.setPen(pen);
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(rect).adjusted(half, half, -half, -half), kRound, kRound);
}

}  // namespace

void announceActiveLabels() {
  // Qt takes the same factory once only.
  QAccessible::installFactory(describe);
}

void ActiveLabel::showText(const QString& text) {
  // A plain label that can have the focus would make an editor for its text.
  const Qt::FocusPolicy policy = focusPolicy();
  setFocusPolicy(Qt::NoFocus);
  setText(text);
  setFocusPolicy(policy);
  if (shortcut_ != 0) releaseShortcut(shortcut_);
  const QKeySequence mnemonic = QKeySequence::mnemonic(text);
  shortcut_ = action_ && !mnemonic.isEmpty() ? grabShortcut(mnemonic) : 0;
}

void ActiveLabel::activateBy(std::function<void()> action, QAccessible::Role role) {
  action_ = std::move(action);
  role_ = role;
  setFocusPolicy(Qt::TabFocus);
}

bool ActiveLabel::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut &&
      static_cast<QShortcutEvent*>(event)->shortcutId() == shortcut_ && shortcut_ != 0) {
    action_();
    return true;
  }
  return MouseReleases<QLabel>::event(event);
}

void ActiveLabel::paintEvent(QPaintEvent* event) {
  if (!action_) return MouseReleases<QLabel>::paintEvent(event);
  QPainter painter(this);
  if (text().isEmpty()) {
    paintPicture(painter);
  } else {
    const int flags = static_cast<int>(alignment()) | Qt::TextShowMnemonic;
    style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), text(),
                          QPalette::WindowText);
  }
  if (hasFocus()) paintFocus(painter);
}

void ActiveLabel::paintFocus(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  if (text().isEmpty()) {
    paintFrame(painter, rect(), QPen(palette().color(QPalette::WindowText), 2), Qt::NoBrush);
    paintFrame(painter, rect().adjusted(2, 2, -2, -2), palette().color(QPalette::Base),
               Qt::NoBrush);
    return;
  }
  constexpr int kGap = 2;
  constexpr float kFaint = 0.25F;
  const QRect words = style()->itemTextRect(fontMetrics(), rect(), static_cast<int>(alignment()),
                                            true, toQt(text::withoutMnemonic(fromQt(text()))));
  const QColor line = palette().color(QPalette::Highlight);
  QColor ground = line;
  ground.setAlphaF(kFaint);
  paintFrame(painter, words.adjusted(-kGap, 0, kGap, 0) & rect(), line, ground);
}

/// The pictures are drawn for light windows: there a grey one steps back by itself.
void ActiveLabel::paintPicture(QPainter& painter) {
  constexpr double kFaded = 0.3;
  if (!isEnabled() && isDark(palette())) painter.setOpacity(kFaded);
  painter.drawPixmap(0, 0, pixmap(Qt::ReturnByValue));
  painter.setOpacity(1);
}

// A plain label would begin to edit its text.
void ActiveLabel::focusInEvent(QFocusEvent* /*event*/) {
  update();
}

void ActiveLabel::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

}  // namespace kvrnstep::qt
