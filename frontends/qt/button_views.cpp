#include "button_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "artwork.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "qt_fonts.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Kind;
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

Qt::CheckState checkState(int value) {
  if (value == 0) return Qt::Unchecked;
  return value == 1 ? Qt::Checked : Qt::PartiallyChecked;
}

}  // namespace

ButtonView::ButtonView(WindowView& window, forms::Control& control, QAbstractButton* button)
    : ControlView(window, control), button_(button) {
  adopt(button);
  QObject::connect(button, &QAbstractButton::clicked, button, [this] { clicked(); });
}

void ButtonView::clicked() {
  // The widget has already changed its mark, and those of its neighbours; the control decides.
  window().markKind(Kind::OptionButton, Property::Value);
  mark(Property::Value);
  forms::userClicked(control());
}

int ButtonView::captionWidth() const {
  constexpr int kBorders = 8;
  return button_->width() - kBorders;
}

void ButtonView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (!changes.has(Property::Caption) && !changes.has(Property::Width)) return;
  const QString caption = toQt(forms::drawnCaption(control()));
  if (button_->text() != caption) button_->setText(caption);
  const QString plain = toQt(text::withoutMnemonic(control().caption()));
  const QFont font = fittedCaptionFont(plain, captionWidth());
  useFont(*button_, font);
}

std::optional<forms::PropertyValue> ButtonView::shown(Property property) const {
  if (property == Property::Caption) {
    // The mark of a mnemonic that another control has is not drawn.
    const std::u16string text = fromQt(button_->text());
    return text == forms::drawnCaption(control()) ? control().caption() : text;
  }
  return ControlView::shown(property);
}

PushButtonView::PushButtonView(WindowView& window, forms::Control& control)
    : ButtonView(window, control, new QPushButton(window.parentFor(control))) {
  // Enter presses the button that has the focus, and no other one.
  static_cast<QPushButton&>(button()).setAutoDefault(true);
}

void PushButtonView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (changes.has(Property::Picture)) button().setIcon(pictureIcon(control().picture()));
}

QRect PushButtonView::place() const {
  const QRect place = ButtonView::place();
  const forms::Control* container = control().container();
  if (container == nullptr) return place;
  return place & QRect(QPoint(0, 0), window().pixelPlace(*container).size());
}

CheckBoxView::CheckBoxView(WindowView& window, forms::CheckBox& box)
    : ButtonView(window, box, new WholePlace<QCheckBox>(window.parentFor(box))) {}

int CheckBoxView::captionWidth() const {
  return contentsWidth(button(), QStyle::SE_CheckBoxContents);
}

void CheckBoxView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (!changes.has(Property::Value)) return;
  auto& box = static_cast<QCheckBox&>(button());
  const Qt::CheckState state = checkState(static_cast<forms::CheckBox&>(control()).value());
  box.setTristate(state == Qt::PartiallyChecked);
  box.setCheckState(state);
}

std::optional<forms::PropertyValue> CheckBoxView::shown(Property property) const {
  const auto& box = static_cast<QCheckBox&>(button());
  const int value = static_cast<const forms::CheckBox&>(control()).value();
  switch (property) {
    case Property::Checked:
      return box.checkState() == Qt::Checked;
    case Property::Value:
      // All values but 0 and 1 look the same.
      if (box.checkState() == checkState(value)) return static_cast<double>(value);
      return box.checkState() == Qt::Checked ? 1.0 : box.checkState() == Qt::Unchecked ? 0.0 : 2.0;
    default:
      return ButtonView::shown(property);
  }
}

OptionButtonView::OptionButtonView(WindowView& window, forms::OptionButton& button)
    : ButtonView(window, button, new WholePlace<QRadioButton>(window.parentFor(button))) {}

int OptionButtonView::captionWidth() const {
  return contentsWidth(button(), QStyle::SE_RadioButtonContents);
}

void OptionButtonView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (!changes.has(Property::Value)) return;
  const bool on = static_cast<forms::OptionButton&>(control()).value();
  if (button().isChecked() == on) return;
  // A button of a group refuses to be cleared.
  button().setAutoExclusive(false);
  button().setChecked(on);
  button().setAutoExclusive(true);
}

std::optional<forms::PropertyValue> OptionButtonView::shown(Property property) const {
  if (property == Property::Value || property == Property::Checked) return button().isChecked();
  return ButtonView::shown(property);
}

}  // namespace kvrnstep::qt
