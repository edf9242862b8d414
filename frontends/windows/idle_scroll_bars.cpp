#include "idle_scroll_bars.h"

#include "control_view.h"
#include "handle.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

/// What the text takes within that width.
SIZE sizeOfText(HWND edit, LONG width, bool wraps) {
  std::u16string text = textOf(edit);
  // The line behind the last break counts, too.
  if (text.ends_with(u'\n')) text += u' ';
  const Drawing context(edit, reinterpret_cast<HFONT>(::SendMessageW(edit, WM_GETFONT, 0, 0)));
  RECT taken{0, 0, width, 0};
  ::DrawTextW(
      context, text::wide(text), -1, &taken,
      DT_CALCRECT | DT_NOPREFIX | DT_EDITCONTROL | DT_EXPANDTABS | (wraps ? DT_WORDBREAK : 0U));
  return {taken.right, taken.bottom};
}

void show(HWND edit, int bar, LONG_PTR style, bool on) {
  const bool shown = (::GetWindowLongPtrW(edit, GWL_STYLE) & style) != 0;
  if (shown != on) ::ShowScrollBar(edit, bar, on ? TRUE : FALSE);
}

}  // namespace

void fitScrollBars(HWND edit, bool wraps) {
  // Measuring a longer text would delay each key.
  constexpr int kLongest = 1 << 16;
  if (::GetWindowTextLengthW(edit) > kLongest) {
    show(edit, SB_VERT, WS_VSCROLL, true);
    return show(edit, SB_HORZ, WS_HSCROLL, !wraps);
  }
  const auto metric = [dpi = ::GetDpiForWindow(edit)](int which) {
    return ::GetSystemMetricsForDpi(which, dpi);
  };
  RECT whole{};
  ::GetWindowRect(edit, &whole);
  const auto margins = static_cast<DWORD>(::SendMessageW(edit, EM_GETMARGINS, 0, 0));
  const LONG width =
      whole.right - whole.left - 2 * metric(SM_CXEDGE) - LOWORD(margins) - HIWORD(margins);
  const LONG height = whole.bottom - whole.top - 2 * metric(SM_CYEDGE);
  const SIZE taken = sizeOfText(edit, width, wraps);
  // Each bar takes room, so that the other one may be needed too.
  const LONG barHigh = metric(SM_CYHSCROLL);
  const LONG barWide = metric(SM_CXVSCROLL);
  bool across = !wraps && taken.cx > width;
  const bool down = taken.cy > height - (across ? barHigh : 0);
  across = across || (!wraps && down && taken.cx > width - barWide);
  show(edit, SB_VERT, WS_VSCROLL, down);
  show(edit, SB_HORZ, WS_HSCROLL, across);
}

}  // namespace kvrnstep::windows
