#include "picture_views.h"

#include <QStatusBar>

#include "artwork.h"
#include "forms/user_actions.h"
#include "qt_colors.h"
#include "qt_fonts.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::MouseButton;
using forms::Property;

namespace {

/// A released button over the control, and the click that the left one makes.
void connectMouse(MouseReleases<QLabel>& label, forms::Control& control) {
  label.onReleased = [&control](MouseButton button) {
    forms::userReleasedMouse(control, button);
    if (button == MouseButton::Left) forms::userClicked(control);
  };
}

}  // namespace

LabelView::LabelView(WindowView& window, forms::Control& label)
    : ControlView(window, label), label_(new DragLabel(window.parentFor(label))) {
  adopt(label_);
  label_->setTextFormat(Qt::PlainText);
  label_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  connectMouse(*label_, label);
  label_->onDropped = [this](QPoint where) {
    if (forms::Control* target = this->window().controlAt(where)) {
      forms::userDropped(control(), *target);
    }
  };
  if (label.row().clickable) {
    QPalette palette = label_->palette();
    palette.setColor(QPalette::WindowText, readableLink(palette));
    label_->setPalette(palette);
  }
}

void LabelView::setBuddy(QWidget* buddy) {
  label_->setBuddy(buddy);
  mark(Property::Caption);
}

void LabelView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Cursor)) {
    applyCursor(*label_, control().cursor());
    if (control().row().draggable) label_->setDraggable(control().dragCursor());
  }
  if (!changes.has(Property::Caption) && !changes.has(Property::Width)) return;
  // Without a buddy a label takes no mnemonic and would show its mark.
  const QString plain = withoutMnemonic(control().caption());
  label_->setText(label_->buddy() != nullptr ? toQt(control().caption()) : plain);
  QFont font = fitted(captionFont(), plain, label_->width());
  font.setUnderline(control().row().clickable);
  label_->setFont(font);
}

std::optional<forms::PropertyValue> LabelView::shown(Property property) const {
  if (property != Property::Caption) return ControlView::shown(property);
  const std::u16string& caption = control().caption();
  const bool whole = label_->buddy() != nullptr || label_->text() != withoutMnemonic(caption);
  return whole ? fromQt(label_->text()) : caption;
}

ImageView::ImageView(WindowView& window, forms::Control& image) : ControlView(window, image) {
  auto* label = new MouseReleases<QLabel>(window.parentFor(image));
  label_ = label;
  adopt(label);
  connectMouse(*label, image);
}

void ImageView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Cursor)) applyCursor(*label_, control().cursor());
  if (changes.has(Property::Width) || changes.has(Property::Picture)) {
    label_->setPixmap(picture(control().picture(), label_->size(), label_->devicePixelRatioF()));
  }
}

StatusBarView::StatusBarView(WindowView& window, forms::Control& bar) : ControlView(window, bar) {
  adopt(new QStatusBar(window.parentFor(bar)));
}

ContainerView::ContainerView(WindowView& window, forms::Control& container)
    : ControlView(window, container) {
  auto* ground = new QWidget(window.parentFor(container));
  adopt(ground);
  // Controls that stand behind a container do not show through.
  ground->setAutoFillBackground(true);
}

}  // namespace kvrnstep::qt
