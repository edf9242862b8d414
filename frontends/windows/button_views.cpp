#include "button_views.h"

#include <algorithm>

#include "box_font.h"
#include "resources.h"
#include "scale.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Property;

namespace {

int checkMark(forms::Mark mark) {
  if (mark == forms::Mark::Mixed) return BST_INDETERMINATE;
  return mark == forms::Mark::On ? BST_CHECKED : BST_UNCHECKED;
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
  if (notification == BN_CLICKED) userPressedButton();
}

void ButtonView::setCaption(const std::u16string& caption) {
  showText(handle(), caption);
}

void ButtonView::fitCaption() {
  const int width = pixelPlace().width - toPixels(beside(), window().dpi());
  Font fitted = fittedFont(control().caption(), width, false, window().dpi());
  useFont(fitted.get());
  font_ = std::move(fitted);
}

int ButtonView::shownMark() const {
  return static_cast<int>(::SendMessageW(handle(), BM_GETCHECK, 0, 0));
}

void ButtonView::setMark(forms::Mark mark) {
  const int wanted = checkMark(mark);
  if (shownMark() == wanted) return;
  ::SendMessageW(handle(), BM_SETCHECK, static_cast<WPARAM>(wanted), 0);
}

PushButtonView::PushButtonView(WindowView& window, forms::Control& control)
    : ButtonView(window, control, BS_PUSHBUTTON | (control.picture().empty() ? 0 : BS_ICON)) {}

void PushButtonView::setPicture(forms::Picture picture) {
  constexpr int kSize = 16;
  Icon icon = loadPicture(picture, toPixels(kSize, window().dpi()));
  ::SendMessageW(handle(), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
  picture_ = std::move(icon);
}

// The system's button keeps its mark until it is told: the control decides.
CheckBoxView::CheckBoxView(WindowView& window, forms::Control& box)
    : ButtonView(window, box, BS_3STATE) {}

OptionButtonView::OptionButtonView(WindowView& window, forms::Control& button)
    : ButtonView(window, button,
                 BS_RADIOBUTTON | (beginsGroup(button) ? static_cast<DWORD>(WS_GROUP) : 0)) {}

}  // namespace kvrnstep::windows
