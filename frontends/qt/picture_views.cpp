#include "picture_views.h"

#include <QAccessibleWidget>
#include <QStatusBar>

#include "artwork.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "qt_colors.h"
#include "qt_fonts.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::MouseButton;
using forms::Property;

namespace {

/// Screen readers are told of it as of a group of controls.
class Group : public QWidget {
 public:
  using QWidget::QWidget;
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
  auto* group = className == QLatin1String("QWidget") ? dynamic_cast<Group*>(object) : nullptr;
  return group == nullptr ? nullptr : new QAccessibleWidget(group, QAccessible::Grouping);
}

/// A released button over the control, the click that the left one makes, and what the keyboard
/// does in its place.
void connectUser(ActiveLabel& label, forms::Control& control) {
  label.onReleased = [&control](MouseButton button) {
    forms::userReleasedMouse(control, button);
    if (button == MouseButton::Left) forms::userClicked(control);
  };
  if (!forms::takesKeyboard(control)) return;
  label.activateBy([&control] { forms::userActivated(control); },
                   forms::isLink(control) ? QAccessible::Link : QAccessible::Button);
}

}  // namespace

void announceGroups() {
  // Qt takes the same factory once only.
  QAccessible::installFactory(describe);
}

LabelView::LabelView(WindowView& window, forms::Control& label)
    : ControlView(window, label), label_(new DragLabel(window.parentFor(label))) {
  connectUser(*label_, label);
  adopt(label_);
  label_->setTextFormat(Qt::PlainText);
  label_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  label_->onDropped = [this](QPoint where) {
    if (forms::Control* target = this->window().controlAt(where)) {
      forms::userDropped(control(), *target);
    }
  };
}

void LabelView::setBuddy(forms::ControlSync& buddy) {
  label_->setBuddy(static_cast<ControlView&>(buddy).widget());
}

void LabelView::recolor() {
  if (!forms::isLink(control())) return;
  label_->setPalette(QPalette());
  QPalette palette = label_->palette();
  palette.setColor(QPalette::WindowText, readableLink(palette));
  label_->setPalette(palette);
}

void LabelView::setCursor(int resourceId) {
  applyCursor(*label_, resourceId);
  if (control().row().draggable) label_->setDraggable(control().dragCursor());
}

void LabelView::setCaption(const std::u16string& caption) {
  // Without a buddy a plain label takes no mnemonic and would show its mark.
  const bool marked = label_->buddy() != nullptr || label_->canBeActivated();
  label_->showText(marked ? toQt(caption) : toQt(text::withoutMnemonic(control().caption())));
}

void LabelView::fitCaption() {
  QFont font = fittedCaptionFont(toQt(text::withoutMnemonic(control().caption())), label_->width());
  font.setUnderline(forms::isLink(control()));
  useFont(*label_, font);
}

ImageView::ImageView(WindowView& window, forms::Control& image)
    : ControlView(window, image), label_(new ActiveLabel(window.parentFor(image))) {
  connectUser(*label_, image);
  adopt(label_);
}

void ImageView::setPicture(forms::Picture picture) {
  label_->setPixmap(qt::picture(picture, label_->size(), label_->devicePixelRatioF()));
}

void ImageView::setCursor(int resourceId) {
  applyCursor(*label_, resourceId);
}

StatusBarView::StatusBarView(WindowView& window, forms::Control& bar) : ControlView(window, bar) {
  adopt(new QStatusBar(window.parentFor(bar)));
}

ContainerView::ContainerView(WindowView& window, forms::Control& container)
    : ControlView(window, container) {
  auto* ground = new Group(window.parentFor(container));
  adopt(ground);
  // Controls that stand behind a container do not show through.
  ground->setAutoFillBackground(true);
}

}  // namespace kvrnstep::qt
