#include "control_view.h"

#include <windowsx.h>

#include <array>
#include <utility>

#include "box_font.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "resources.h"
#include "scale.h"
#include "text/windows/wide.h"
#include "window_view.h"

namespace kvrnstep::windows {

namespace {

/// The room in 1/96 inch that a border or a mark takes of a caption's.
int besideCaption(const forms::Control& control) {
  if (control.kind() == forms::Kind::Label) return control.row().draggable ? 4 : 0;
  return control.kind() == forms::Kind::Button ? 8 : 18;
}

}  // namespace

ControlView::ControlView(WindowView& window, forms::Control& control)
    : ControlSync(window, control), window_(window) {}

void ControlView::create(const wchar_t* className, DWORD style, DWORD extendedStyle) {
  adopt(::CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0,
                          0, 0, window_.parentFor(control()), nullptr, thisModule(), nullptr));
  useFont(window_.captionFont());
}

LRESULT ControlView::received(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_SETCURSOR && LOWORD(longer) == HTCLIENT) {
    if (const HCURSOR cursor = cursorOf(control().cursor())) {
      ::SetCursor(cursor);
      return TRUE;
    }
  }
  const LRESULT result = Receiver::received(message, wide, longer);
  const auto mouse = mouseChange(message);
  if (mouse && !mouse->pressed && !applying() && isInside(handle(), longer)) {
    forms::userReleasedMouse(control(), mouse->button);
  }
  return result;
}

std::optional<LRESULT> ControlView::told(UINT message, WPARAM wide, LPARAM /*longer*/) {
  if (message == WM_COMMAND) {
    commanded(HIWORD(wide));
    return 0;
  }
  const bool asksForColors = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC;
  const HBRUSH brush = asksForColors ? colored(reinterpret_cast<HDC>(wide)) : nullptr;
  if (brush == nullptr) return std::nullopt;
  return reinterpret_cast<LRESULT>(brush);
}

void ControlView::rescale() {
  if (handle() != nullptr) useFont(window_.captionFont());
}

void ControlView::setEnabled(bool enabled) {
  ::EnableWindow(handle(), enabled ? TRUE : FALSE);
}

void ControlView::setVisible(bool visible) {
  ::ShowWindow(handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void ControlView::setPlace(const forms::PixelRect& place) {
  // Nothing is copied, because borders drawn at the old size would stay.
  ::SetWindowPos(handle(), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void ControlView::setTabStop(bool on) {
  const LONG_PTR style = ::GetWindowLongPtrW(handle(), GWL_STYLE);
  const LONG_PTR wanted = on ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP};
  if (wanted != style) ::SetWindowLongPtrW(handle(), GWL_STYLE, wanted);
}

void ControlView::setCaption(const std::u16string& caption) {
  ::SetWindowTextW(handle(), text::wide(caption));
}

void ControlView::fitCaption() {
  const int width = pixelPlace().width - toPixels(besideCaption(control()), window_.dpi());
  useFont(fittedFont(control().caption(), width, forms::isLink(control()), window_.dpi()));
}

void ControlView::useFont(HFONT font) {
  ::SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void ControlView::useFont(Font font) {
  useFont(font.get());
  font_ = std::move(font);
}

std::u16string textOf(HWND window) {
  std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, u'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text::wide(text.data()), static_cast<int>(text.size()))));
  return text;
}

std::optional<MouseChange> mouseChange(UINT message) {
  using enum forms::MouseButton;
  constexpr std::array kButtons{Left, Right, Middle};
  if (message < WM_LBUTTONDOWN || message > WM_MBUTTONDBLCLK) return std::nullopt;
  // Each button has three messages: down, up, and down for a double click.
  const UINT number = message - WM_LBUTTONDOWN;
  return MouseChange{kButtons.at(number / 3), number % 3 != 1};
}

bool isInside(HWND window, LPARAM where) {
  RECT inside{};
  ::GetClientRect(window, &inside);
  return ::PtInRect(&inside, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}) != FALSE;
}

}  // namespace kvrnstep::windows
