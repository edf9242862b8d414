#include "control_view.h"

#include <windowsx.h>

#include "accessible_names.h"
#include "forms/keyboard.h"
#include "guard.h"
#include "resources.h"
#include "text/windows/wide.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::MouseButton;
using forms::Property;

ControlView::ControlView(WindowView& window, forms::Control& control)
    : ControlSync(window, control), window_(window) {}

ControlView::~ControlView() {
  // The window goes with its parent; what it still tells must not reach a view that is gone.
  if (handle_ != nullptr) ::RemoveWindowSubclass(handle_, procedure, 0);
}

void ControlView::create(const wchar_t* className, DWORD style, DWORD extendedStyle,
                         void* parameter) {
  handle_ =
      ::CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0,
                        0, window_.parentFor(control()), nullptr, thisModule(), parameter);
  ::SetWindowSubclass(handle_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
  useFont(window_.captionFont());
}

LRESULT CALLBACK ControlView::procedure(HWND /*handle*/, UINT message, WPARAM wide, LPARAM longer,
                                        UINT_PTR /*id*/, DWORD_PTR view) {
  return guarded(
      [&] { return reinterpret_cast<ControlView*>(view)->received(message, wide, longer); });
}

LRESULT ControlView::received(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_SETCURSOR && LOWORD(longer) == HTCLIENT && !window_.busy()) {
    if (const HCURSOR cursor = cursorOf(control().cursor())) {
      ::SetCursor(cursor);
      return TRUE;
    }
  }
  return ::DefSubclassProc(handle_, message, wide, longer);
}

void ControlView::rescale() {
  if (handle_ != nullptr) useFont(window_.captionFont());
}

void ControlView::setEnabled(bool enabled) {
  ::EnableWindow(handle_, enabled ? TRUE : FALSE);
}

void ControlView::setVisible(bool visible) {
  ::ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

void ControlView::setPlace(const forms::PixelRect& place) {
  const RECT wanted{place.left, place.top, place.left + place.width, place.top + place.height};
  RECT now{};
  ::GetWindowRect(handle_, &now);
  ::MapWindowPoints(nullptr, ::GetParent(handle_), reinterpret_cast<POINT*>(&now), 2);
  if (::EqualRect(&now, &wanted) != FALSE) return;
  ::SetWindowPos(handle_, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  // What a window has drawn at its old edges moves with it otherwise.
  ::InvalidateRect(handle_, nullptr, TRUE);
}

void ControlView::setTabStop(bool on) {
  const LONG_PTR style = ::GetWindowLongPtrW(handle_, GWL_STYLE);
  const LONG_PTR wanted = on ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP};
  if (wanted != style) ::SetWindowLongPtrW(handle_, GWL_STYLE, wanted);
}

void ControlView::announce(AccessibleNames& names) const {
  // The system reads captions out itself, those too that change.
  if (control().row().accessibleName.empty() && !control().caption().empty()) return;
  const std::u16string name = forms::accessibleName(control());
  names.setName(handle_, name);
  if (keyTarget() != handle_) names.setName(keyTarget(), name);
}

void ControlView::useFont(HFONT font) {
  ::SendMessageW(handle_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

std::u16string textOf(HWND window) {
  std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, u'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text::wide(text.data()), static_cast<int>(text.size()))));
  return text;
}

void showText(HWND window, const std::u16string& text) {
  // The system's texts end at the first NUL.
  if (textOf(window) != text.substr(0, text.find(u'\0'))) {
    ::SetWindowTextW(window, text::wide(text));
  }
}

std::optional<MouseButton> pressedButton(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return MouseButton::Left;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      return MouseButton::Middle;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      return MouseButton::Right;
    default:
      return std::nullopt;
  }
}

std::optional<MouseButton> releasedButton(UINT message) {
  switch (message) {
    case WM_LBUTTONUP:
      return MouseButton::Left;
    case WM_MBUTTONUP:
      return MouseButton::Middle;
    case WM_RBUTTONUP:
      return MouseButton::Right;
    default:
      return std::nullopt;
  }
}

bool isInside(HWND window, LPARAM where) {
  RECT inside{};
  ::GetClientRect(window, &inside);
  return ::PtInRect(&inside, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}) != FALSE;
}

}  // namespace kvrnstep::windows
