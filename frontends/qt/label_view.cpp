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

void LabelView::setPicture(forms::Picture picture) {
  label().setPixmap(
      qt::picture(picture, label().size(), label().devicePixelRatioF(), label().palette()));
}

}  // namespace kvrnstep::qt
