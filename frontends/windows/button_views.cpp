#include "button_views.h"

#include <algorithm>

#include "box_font.h"
#include "forms/user_actions.h"
#include "resources.h"
#include "scale.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Property;

namespace {

int checkMark(int value) {
  if (value == 0) return BST_UNCHECKED;
  return value == 1 ? BST_CHECKED : BST_INDETERMINATE;
}

/// The first of the option buttons of its container: the arrow keys stay behind it.
bool beginsGroup(const forms::Control& button) {
  const auto& all = button.window().controls();
  const auto first = std::ranges::find_if(all, [&](const auto& control) {
    return control->kind() == forms::Kind::OptionButton &&
           control->container() == button.container();
  });
  return first->get() == &button;
}

}  // namespace

ButtonView::ButtonView(WindowView& window, forms::Control& control, DWORD style)
    : ControlView(window, control) {
  create(WC_BUTTONW, style);
}

void ButtonView::commanded(int notification) {
  if (notification == BN_CLICKED && !applying()) forms::userClicked(control());
}

void ButtonView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Caption)) showCaption();
  if (changes.has(Property::Caption) || changes.has(Property::Width)) fitFont();
}

void ButtonView::fitFont() {
  const int width = static_cast<int>(place().right - place().left);
  Font fitted = fittedFont(control().caption(), width - toPixels(beside(), window().dpi()), false,
                           window().dpi());
  useFont(fitted.get());
  font_ = std::move(fitted);
}

int ButtonView::mark() const {
  return static_cast<int>(::SendMessageW(handle(), BM_GETCHECK, 0, 0));
}

void ButtonView::showMark(int mark) {
  if (this->mark() != mark) {
    ::SendMessageW(handle(), BM_SETCHECK, static_cast<WPARAM>(mark), 0);
  }
}

std::optional<forms::PropertyValue> ButtonView::shown(Property property) const {
  if (property == Property::Caption) return shownCaption();
  return ControlView::shown(property);
}

PushButtonView::PushButtonView(WindowView& window, forms::Control& control)
    : ButtonView(window, control,
                 BS_PUSHBUTTON | (control.picture() == forms::Picture::None ? 0 : BS_ICON)) {}

void PushButtonView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (!changes.has(Property::Picture)) return;
  constexpr int kSize = 16;
  Icon picture = loadPicture(control().picture(), toPixels(kSize, window().dpi()));
  ::SendMessageW(handle(), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture.get()));
  picture_ = std::move(picture);
}

// The system's button keeps its mark until it is told: the control decides.
CheckBoxView::CheckBoxView(WindowView& window, forms::CheckBox& box)
    : ButtonView(window, box, BS_3STATE) {}

void CheckBoxView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (changes.has(Property::Value)) {
    showMark(checkMark(static_cast<forms::CheckBox&>(control()).value()));
  }
}

std::optional<forms::PropertyValue> CheckBoxView::shown(Property property) const {
  const int value = static_cast<const forms::CheckBox&>(control()).value();
  switch (property) {
    case Property::Checked:
      return mark() == BST_CHECKED;
    case Property::Value:
      // All values but 0 and 1 look the same.
      return static_cast<double>(mark() == checkMark(value) ? value : mark());
    default:
      return ButtonView::shown(property);
  }
}

OptionButtonView::OptionButtonView(WindowView& window, forms::OptionButton& button)
    : ButtonView(window, button,
                 BS_RADIOBUTTON | (beginsGroup(button) ? static_cast<DWORD>(WS_GROUP) : 0)) {}

bool OptionButtonView::takesFocus() const {
  return static_cast<const forms::OptionButton&>(control()).value();
}

void OptionButtonView::apply(const Changes& changes) {
  ButtonView::apply(changes);
  if (changes.has(Property::Value)) {
    showMark(static_cast<forms::OptionButton&>(control()).value() ? BST_CHECKED : BST_UNCHECKED);
  }
}

std::optional<forms::PropertyValue> OptionButtonView::shown(Property property) const {
  if (property == Property::Value || property == Property::Checked) return mark() == BST_CHECKED;
  return ButtonView::shown(property);
}

}  // namespace kvrnstep::windows
