#include "label_view.h"

#include "forms/keyboard.h"
#include "looks.h"
#include "text.h"

namespace kvrnstep::qt {

LabelView::LabelView(WindowView& window, forms::Control& control)
    : ControlView(window, control, new ActiveLabel(window, control)) {}

void LabelView::setBuddy(forms::ControlSync& buddy) {
  label().setBuddy(static_cast<ControlView&>(buddy).widget());
}

void LabelView::recolor() {
  if (control().kind() == forms::Kind::Image) {
    // At first there is none yet.
    if (!label().pixmap(Qt::ReturnByValue).isNull()) setPicture(control().picture());
    return;
  }
  if (!forms::isLink(control())) return;
  label().setPalette(QPalette());
  QPalette palette = label().palette();
  palette.setColor(QPalette::WindowText, shadesOf(palette).link);
  label().setPalette(palette);
}

void LabelView::setCursor(int resourceId) {
  if (resourceId == 0) return label().unsetCursor();
  label().setCursor(cursorOf(resourceId, label().devicePixelRatioF()));
}

void LabelView::setCaption(const std::u16string& caption) {
  label().showText(toQt(caption));
}

/// What can be dragged has a border around the place of its text.
void LabelView::setPlace(const forms::PixelRect& place) {
  constexpr int kBeside = 4;
  constexpr int kAbove = 2;
  ControlView::setPlace(place);
  if (!control().row().draggable) return;
  label().setGeometry(label().geometry().adjusted(-kBeside, -kAbove, kBeside, kAbove));
}

void LabelView::setPicture(forms::Picture picture) {
  if (control().kind() == forms::Kind::Label) return;
  label().setPixmap(
      qt::picture(picture, label().size(), label().devicePixelRatioF(), label().palette()));
}

}  // namespace kvrnstep::qt
