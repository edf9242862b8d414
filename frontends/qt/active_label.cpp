#include "active_label.h"

#include <QAccessibleWidget>
#include <QGuiApplication>
#include <QPainter>
#include <QShortcutEvent>
#include <QStyle>
#include <utility>

#include "forms/keyboard.h"
#include "looks.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

class PressableLabel : public QAccessibleWidget {
 public:
  using Relation = QPair<QAccessibleInterface*, QAccessible::Relation>;

  explicit PressableLabel(ActiveLabel& label)
      : QAccessibleWidget(&label,
                          forms::isLink(label.control()) ? QAccessible::Link : QAccessible::Button),
        label_(label) {}

  [[nodiscard]] QStringList actionNames() const override {
    if (!label_.isEnabled()) return {};
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    // Later, because the screen reader waits for its answer, and a window that opens may stay.
    QMetaObject::invokeMethod(
        &label_,
        [&label = label_] {
          if (label.isEnabled()) forms::userActivated(label.control());
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

class Group : public QWidget {
 public:
  using QWidget::QWidget;
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
  auto* label = dynamic_cast<ActiveLabel*>(object);
  if (label != nullptr && forms::takesKeyboard(label->control())) return new PressableLabel(*label);
  auto* group = dynamic_cast<Group*>(object);
  return group == nullptr ? nullptr : new QAccessibleWidget(group, QAccessible::Grouping);
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

QWidget* makeGroup(QWidget* parent) {
  auto* group = new Group(parent);
  // Controls that stand behind it do not show through.
  group->setAutoFillBackground(true);
  return group;
}

void announceLabelsAndGroups() {
  // Qt takes the same factory once only.
  QAccessible::installFactory(describe);
}

ActiveLabel::ActiveLabel(WindowView& window, forms::Control& control)
    : MouseReleases<QLabel>(control, window.parentFor(control)),
      window_(window),
      active_(forms::takesKeyboard(control)) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  if (active_) setFocusPolicy(Qt::TabFocus);
}

ActiveLabel::~ActiveLabel() {
  endDrag();
}

void ActiveLabel::showText(const QString& text) {
  // Without a buddy a plain label takes no mnemonic and would show its mark.
  if (!active_ && buddy() == nullptr) {
    return setText(toQt(text::withoutMnemonic(control().caption())));
  }
  // A plain label that can have the focus would make an editor for its text.
  const Qt::FocusPolicy policy = focusPolicy();
  setFocusPolicy(Qt::NoFocus);
  setText(text);
  setFocusPolicy(policy);
  if (shortcut_ != 0) releaseShortcut(shortcut_);
  const QKeySequence mnemonic = QKeySequence::mnemonic(text);
  shortcut_ = active_ && !mnemonic.isEmpty() ? grabShortcut(mnemonic) : 0;
}

bool ActiveLabel::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut &&
      static_cast<QShortcutEvent*>(event)->shortcutId() == shortcut_ && shortcut_ != 0) {
    forms::userActivated(control());
    return true;
  }
  return MouseReleases<QLabel>::event(event);
}

void ActiveLabel::paintEvent(QPaintEvent* event) {
  if (!active_) return MouseReleases<QLabel>::paintEvent(event);
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

void ActiveLabel::paintPicture(QPainter& painter) {
  // The grey of disabled pictures is that of light windows; in dark ones it would stand out.
  constexpr double kFaded = 0.3;
  if (!isEnabled() && isDark(palette())) painter.setOpacity(kFaded);
  painter.drawPixmap(0, 0, pixmap(Qt::ReturnByValue));
  painter.setOpacity(1);
}

// Not passed on, because a plain label would begin to edit its text.
void ActiveLabel::focusInEvent(QFocusEvent* /*event*/) {
  update();
}

void ActiveLabel::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

void ActiveLabel::released(forms::MouseButton button) {
  MouseReleases<QLabel>::released(button);
  if (button == forms::MouseButton::Left) forms::userClicked(control());
}

void ActiveLabel::mousePressEvent(QMouseEvent* event) {
  MouseReleases<QLabel>::mousePressEvent(event);
  if (!control().row().draggable || dragged_ || event->button() != Qt::LeftButton) return;
  dragged_ = true;
  QGuiApplication::setOverrideCursor(cursorOf(control().dragCursor(), devicePixelRatioF()));
}

void ActiveLabel::mouseReleaseEvent(QMouseEvent* event) {
  MouseReleases<QLabel>::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton || !endDrag()) return;
  forms::Control* target = window_.controlAt(event->globalPosition().toPoint());
  if (target != nullptr) forms::userDropped(control(), *target);
}

void ActiveLabel::hideEvent(QHideEvent* event) {
  endDrag();
  MouseReleases<QLabel>::hideEvent(event);
}

/// False where nothing was dragged.
bool ActiveLabel::endDrag() {
  if (dragged_) QGuiApplication::restoreOverrideCursor();
  return std::exchange(dragged_, false);
}

}  // namespace kvrnstep::qt
