#include "label_view.h"

#include <windowsx.h>

#include <utility>

#include "forms/contrast.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "resources.h"
#include "text/windows/wide.h"
#include "window_view.h"

namespace kvrnstep::windows {

LRESULT MouseView::received(UINT message, WPARAM wide, LPARAM longer) {
  // Tab would skip it as a static control.
  if (message == WM_GETDLGCODE && forms::takesKeyboard(control())) return DLGC_BUTTON;
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
    ::InvalidateRect(handle(), nullptr, TRUE);
  }
  const auto mouse = mouseChange(message);
  if (!mouse) return ControlView::received(message, wide, longer);
  const bool left = mouse->button == forms::MouseButton::Left;
  if (mouse->pressed) {
    ::SetCapture(handle());
    if (left) pressed();
    return 0;
  }
  if (::GetCapture() != handle()) return 0;
  ::ReleaseCapture();
  POINT where{GET_X_LPARAM(longer), GET_Y_LPARAM(longer)};
  ::ClientToScreen(handle(), &where);
  if (isInside(handle(), longer)) forms::userReleasedMouse(control(), mouse->button);
  if (left) released(where);
  return 0;
}

LabelView::LabelView(WindowView& window, forms::Control& label) : MouseView(window, label) {
  if (label.row().draggable) {
    // It looks like a thing. The mouse and the keys never reach the system's button.
    create(WC_BUTTONW, BS_PUSHBUTTON);
  } else {
    create(WC_STATICW, SS_LEFT | SS_NOTIFY | SS_CENTERIMAGE);
  }
}

HBRUSH LabelView::colored(HDC context) {
  if (!forms::isLink(control())) return nullptr;
  ::SetTextColor(context, hovered_ ? hoverColor_ : color_);
  ::SetBkColor(context, ::GetSysColor(COLOR_BTNFACE));
  return ::GetSysColorBrush(COLOR_BTNFACE);
}

void LabelView::recolor() {
  const auto link = [&](double contrast) {
    const forms::Rgb color =
        forms::standingOut(systemColor(COLOR_HOTLIGHT), systemColor(COLOR_BTNFACE), contrast);
    return RGB(color.red, color.green, color.blue);
  };
  color_ = link(forms::kReadable);
  hoverColor_ = link(forms::kUnderMouse);
}

/// A link looks different while the mouse is over it.
void LabelView::hover(bool on) {
  if (!forms::isLink(control()) || std::exchange(hovered_, on) == on) return;
  ::InvalidateRect(handle(), nullptr, TRUE);
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
  if (on) ::TrackMouseEvent(&leaving);
}

LRESULT LabelView::received(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_LBUTTONDBLCLK && control().row().draggable) {
    forms::userDoubleClicked(control());
    return 0;
  }
  if (message == WM_MOUSEMOVE || message == WM_MOUSELEAVE) hover(message == WM_MOUSEMOVE);
  // While the mouse is captured the system sends no WM_SETCURSOR.
  if (message == WM_MOUSEMOVE && dragged_) ::SetCursor(cursorOf(forms::kDragCursor));
  // Another window takes the mouse: the drag is over without a drop.
  if (message == WM_CAPTURECHANGED && reinterpret_cast<HWND>(longer) != nullptr) setDragged(false);
  const LRESULT result = MouseView::received(message, wide, longer);
  if (message == WM_PAINT && hasFocus() && !control().row().draggable) drawFocus();
  return result;
}

void LabelView::drawFocus() const {
  const Drawing context(handle(), font());
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  RECT words = inside;
  ::DrawTextW(context, text::wide(textOf(handle())), -1, &words, DT_CALCRECT | DT_SINGLELINE);
  const LONG gap = (inside.bottom - words.bottom) / 2;
  ::OffsetRect(&words, 0, gap);
  ::IntersectRect(&words, &words, &inside);
  ::DrawFocusRect(context, &words);
}

void LabelView::pressed() {
  if (!control().row().draggable) return;
  setDragged(true);
  ::SetCursor(cursorOf(forms::kDragCursor));
}

void LabelView::setDragged(bool dragged) {
  dragged_ = dragged;
  ::SendMessageW(handle(), BM_SETSTATE, dragged ? TRUE : FALSE, 0);
}

void LabelView::released(POINT onScreen) {
  if (!dragged_) return;
  setDragged(false);
  if (forms::Control* target = window().controlAt(onScreen)) {
    forms::userDropped(control(), *target);
  }
}

}  // namespace kvrnstep::windows
