#include "button_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "looks.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Kind;

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

/// A button that can look like the default button, though Enter does not press it.
class PushButton : public QPushButton {
 public:
  PushButton(bool prominent, QWidget* parent) : QPushButton(parent), prominent_(prominent) {
    // Enter presses the button that has the focus.
    setAutoDefault(true);
  }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    QPushButton::initStyleOption(option);
    option->features.setFlag(QStyleOptionButton::DefaultButton, prominent_);
  }

 private:
  bool prominent_;
};

QWidget* makeButton(const forms::Control& control, QWidget* parent) {
  const Kind kind = control.kind();
  if (kind == Kind::CheckBox) return new WholePlace<QCheckBox>(parent);
  if (kind == Kind::OptionButton) return new WholePlace<QRadioButton>(parent);
  return new PushButton(control.row().prominent, parent);
}

}  // namespace

ButtonView::ButtonView(WindowView& window, forms::Control& control)
    : ControlView(window, control, makeButton(control, window.parentFor(control))) {
  QObject::connect(&button(), &QAbstractButton::clicked, &button(),
                   [this] { userPressedButton(); });
}

int ButtonView::captionWidth() const {
  constexpr int kBorders = 8;
  if (control().kind() == Kind::Button) return button().width() - kBorders;
  QStyleOptionButton option;
  option.initFrom(&button());
  const auto contents = control().kind() == Kind::CheckBox ? QStyle::SE_CheckBoxContents
                                                           : QStyle::SE_RadioButtonContents;
  return button().style()->subElementRect(contents, &option, &button()).width();
}

void ButtonView::setCaption(const std::u16string& caption) {
  button().setText(toQt(caption));
}

void ButtonView::setPicture(forms::Picture picture) {
  button().setIcon(pictureIcon(picture));
}

void ButtonView::setMark(forms::Mark mark) {
  if (auto* box = qobject_cast<QCheckBox*>(&button())) {
    box->setTristate(mark == forms::Mark::Mixed);
    box->setChecked(mark == forms::Mark::On);
    if (mark == forms::Mark::Mixed) box->setCheckState(Qt::PartiallyChecked);
    return;
  }
  // A button of a group refuses to be cleared.
  button().setAutoExclusive(false);
  button().setChecked(mark == forms::Mark::On);
  button().setAutoExclusive(true);
}

}  // namespace kvrnstep::qt
