#include "button_views.h"

#include "resources.h"
#include "scale.h"
#include "window_view.h"

namespace kvrnstep::windows {

namespace {

/// Whether this is the first option button of its container. The arrow keys move within a group,
/// and a group begins where the style says so.
bool beginsGroup(const forms::Control& button) {
  return &button == button.window().findIf([&](const forms::Control& control) {
    return control.kind() == forms::Kind::OptionButton && control.container() == button.container();
  });
}

/// Of the kinds that don't change their mark themselves, because the control decides.
DWORD styleOf(const forms::Control& button) {
  if (button.kind() == forms::Kind::CheckBox) return BS_3STATE;
  if (button.kind() == forms::Kind::OptionButton) {
    return beginsGroup(button) ? DWORD{BS_RADIOBUTTON | WS_GROUP} : BS_RADIOBUTTON;
  }
  if (button.row().prominent) return BS_DEFPUSHBUTTON;
  return button.picture().empty() ? BS_PUSHBUTTON : BS_PUSHBUTTON | BS_ICON;
}

}  // namespace

ButtonView::ButtonView(WindowView& window, forms::Control& control) : ControlView(window, control) {
  create(WC_BUTTONW, styleOf(control));
  // The system would click an option button that gets the keyboard.
  ::SendMessageW(handle(), BM_SETDONTCLICK, TRUE, 0);
}

LRESULT ButtonView::received(UINT message, WPARAM wide, LPARAM longer) {
  if (control().row().prominent) {
    // It only looks like the button of Enter: whoever looks for that one does not find it, and when
    // the focus moves its look stays.
    if (message == WM_GETDLGCODE) return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    if (message == BM_SETSTYLE) wide = BS_DEFPUSHBUTTON;
  }
  return ControlView::received(message, wide, longer);
}

void ButtonView::commanded(int notification) {
  if (notification == BN_CLICKED) userPressedButton();
}

void ButtonView::setMark(forms::Mark mark) {
  // The system's numbers for the marks are the same.
  static_assert(static_cast<int>(forms::Mark::Mixed) == BST_INDETERMINATE);
  ::SendMessageW(handle(), BM_SETCHECK, static_cast<WPARAM>(mark), 0);
}

void ButtonView::setPicture(forms::Picture picture) {
  constexpr int kSize = 16;
  Icon icon = loadPicture(picture, toPixels(kSize, window().dpi()));
  ::SendMessageW(handle(), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
  picture_ = std::move(icon);
}

}  // namespace kvrnstep::windows
