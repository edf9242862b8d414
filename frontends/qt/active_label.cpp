#include "active_label.h"

#include <QAccessibleWidget>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <utility>

#include "forms/keyboard.h"
#include "looks.h"
#include "shapes.h"
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
    // Later, because the screen reader waits for an answer, and the click may open a window that
    // stays open.
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

}  // namespace

QWidget* makeGroup(QWidget* parent) {
  auto* group = new Group(parent);
  // Controls behind it must not show through.
  group->setAutoFillBackground(true);
  return group;
}

void announceLabelsAndGroups() {
  // Qt ignores a factory that is installed already.
  QAccessible::installFactory(describe);
}

ActiveLabel::ActiveLabel(WindowView& window, forms::Control& control)
    : MouseReleases<QLabel>(control, window.parentFor(control)),
      window_(window),
      active_(forms::takesKeyboard(control)) {
  setTextFormat(Qt::PlainText);
  setAlignment((control.row().draggable ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
  if (!active_) return;
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
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
}

void ActiveLabel::paintEvent(QPaintEvent* event) {
  if (!active_) return MouseReleases<QLabel>::paintEvent(event);
  QPainter painter(this);
  if (text().isEmpty()) return painter.drawPixmap(0, 0, pixmap(Qt::ReturnByValue));
  QPalette colors = palette();
  paintGround(painter, colors);
  const int flags = static_cast<int>(alignment()) | Qt::TextShowMnemonic;
  style()->drawItemText(&painter, rect(), flags, colors, isEnabled(), text(), QPalette::WindowText);
}

/// What can be dragged looks like a thing, and a link under the mouse like one.
void ActiveLabel::paintGround(QPainter& painter, QPalette& colors) const {
  const Shades& shades = shadesOf(colors);
  if (control().row().draggable) {
    QStyleOptionButton chip;
    chip.initFrom(this);
    chip.state.setFlag(QStyle::State_Sunken, dragged_);
    window()->style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &chip, &painter, this);
  } else if (underMouse()) {
    const QRect words = style()->itemTextRect(fontMetrics(), rect(), static_cast<int>(alignment()),
                                              true, toQt(text::withoutMnemonic(fromQt(text()))));
    drawBox(painter, words, {shades.hoverGround, shades.hoverGround});
    colors.setColor(QPalette::WindowText, shades.hoverLink);
  }
}

// Not passed on, because a plain label would begin to edit its text.
void ActiveLabel::focusInEvent(QFocusEvent* /*event*/) {}
void ActiveLabel::focusOutEvent(QFocusEvent* /*event*/) {}

void ActiveLabel::mousePressEvent(QMouseEvent* event) {
  MouseReleases<QLabel>::mousePressEvent(event);
  if (!control().row().draggable || dragged_ || event->button() != Qt::LeftButton) return;
  dragged_ = true;
  update();
  QGuiApplication::setOverrideCursor(cursorOf(forms::kDragCursor, devicePixelRatioF()));
}

void ActiveLabel::mouseReleaseEvent(QMouseEvent* event) {
  MouseReleases<QLabel>::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton || !endDrag()) return;
  forms::Control* target = window_.controlAt(event->globalPosition().toPoint());
  if (target != nullptr) forms::userDropped(control(), *target);
}

void ActiveLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!control().row().draggable || event->button() != Qt::LeftButton) {
    return MouseReleases<QLabel>::mouseDoubleClickEvent(event);
  }
  event->accept();
  forms::userDoubleClicked(control());
}

void ActiveLabel::hideEvent(QHideEvent* event) {
  endDrag();
  MouseReleases<QLabel>::hideEvent(event);
}

/// False where nothing was dragged.
bool ActiveLabel::endDrag() {
  if (dragged_) QGuiApplication::restoreOverrideCursor();
  update();
  return std::exchange(dragged_, false);
}

}  // namespace kvrnstep::qt
