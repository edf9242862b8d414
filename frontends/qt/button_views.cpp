#include "button_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "artwork.h"
#include "forms/keyboard.h"
#include "qt_fonts.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

namespace {

/// A check box or option button that takes a click on all of its place, not only on its caption.
template <class Base>
class WholePlace : public Base {
 public:
  using Base::Base;

 protected:
  [[nodiscard]] bool hitButton(const QPoint& point) const override {
    return this->rect().contains(point);
  }
};

int contentsWidth(const QAbstractButton& button, QStyle::SubElement contents) {
  QStyleOptionButton option;
  option.initFrom(&button);
  return button.style()->subElementRect(contents, &option, &button).width();
}

Qt::CheckState checkState(forms::Mark mark) {
  if (mark == forms::Mark::Mixed) return Qt::PartiallyChecked;
  return mark == forms::Mark::On ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

ButtonView::ButtonView(WindowView& window, forms::Control& control, QAbstractButton* button)
    : ControlView(window, control), button_(button) {
  adopt(button);
  QObject::connect(button, &QAbstractButton::clicked, button, [this] { userPressedButton(); });
}

int ButtonView::captionWidth() const {
  constexpr int kBorders = 8;
  return button_->width() - kBorders;
}

void ButtonView::setCaption(const std::u16string& caption) {
  const QString text = toQt(caption);
  if (button_->text() != text) button_->setText(text);
}

void ButtonView::fitCaption() {
  useFont(*button_,
          fittedCaptionFont(toQt(text::withoutMnemonic(control().caption())), captionWidth()));
}

PushButtonView::PushButtonView(WindowView& window, forms::Control& control)
    : ButtonView(window, control, new QPushButton(window.parentFor(control))) {
  // Enter presses the button that has the focus, and no other one.
  static_cast<QPushButton&>(button()).setAutoDefault(true);
}

void PushButtonView::setPicture(forms::Picture picture) {
  button().setIcon(pictureIcon(picture));
}

CheckBoxView::CheckBoxView(WindowView& window, forms::Control& box)
    : ButtonView(window, box, new WholePlace<QCheckBox>(window.parentFor(box))) {}

int CheckBoxView::captionWidth() const {
  return contentsWidth(button(), QStyle::SE_CheckBoxContents);
}

void CheckBoxView::setMark(forms::Mark mark) {
  auto& box = static_cast<QCheckBox&>(button());
  box.setTristate(mark == forms::Mark::Mixed);
  box.setCheckState(checkState(mark));
}

OptionButtonView::OptionButtonView(WindowView& window, forms::Control& button)
    : ButtonView(window, button, new WholePlace<QRadioButton>(window.parentFor(button))) {}

int OptionButtonView::captionWidth() const {
  return contentsWidth(button(), QStyle::SE_RadioButtonContents);
}

void OptionButtonView::setMark(forms::Mark mark) {
  const bool on = mark == forms::Mark::On;
  if (button().isChecked() == on) return;
  // A button of a group refuses to be cleared.
  button().setAutoExclusive(false);
  button().setChecked(on);
  button().setAutoExclusive(true);
}

}  // namespace kvrnstep::qt
