#include "centred_line.h"

// After the other one.
#include <commctrl.h>
#include <windowsx.h>

#include "guard.h"

namespace kvrnstep::windows {

namespace {

// The inside of the control is made as low as its line; the bands above and below become part of
// the frame, look like the inside and take clicks for it.

constexpr UINT_PTR kId = 1;

LRESULT CALLBACK procedure(HWND edit, UINT message, WPARAM wide, LPARAM longer, UINT_PTR id,
                           DWORD_PTR data);

/// The frame is asked for anew.
void renewFrame(HWND edit) {
  ::SetWindowPos(edit, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LONG lineHeight(HWND edit) {
  const HDC context = ::GetDC(edit);
  auto* const font = reinterpret_cast<HFONT>(::SendMessageW(edit, WM_GETFONT, 0, 0));
  const HGDIOBJ before = ::SelectObject(context, font);
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context, &metrics);
  ::SelectObject(context, before);
  ::ReleaseDC(edit, context);
  return metrics.tmHeight;
}

void shrink(HWND edit, RECT& inside) {
  const LONG spare = inside.bottom - inside.top - lineHeight(edit);
  if (spare <= 0) return;
  inside.top += spare / 2;
  inside.bottom -= spare - spare / 2;
}

/// What lies within the frame, bands and all, on the screen.
RECT withinFrame(HWND edit) {
  RECT area{};
  ::GetWindowRect(edit, &area);
  ::DefSubclassProc(edit, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&area));
  return area;
}

bool takesText(HWND edit) {
  const LONG_PTR style = ::GetWindowLongPtrW(edit, GWL_STYLE);
  return (style & (WS_DISABLED | ES_READONLY)) == 0;
}

void fillBands(HWND edit) {
  RECT inside{};
  ::GetClientRect(edit, &inside);
  ::MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  RECT whole{};
  ::GetWindowRect(edit, &whole);
  RECT area = withinFrame(edit);
  ::OffsetRect(&area, -whole.left, -whole.top);
  ::OffsetRect(&inside, -whole.left, -whole.top);
  const HDC context = ::GetWindowDC(edit);
  auto* const ground = reinterpret_cast<HBRUSH>(
      ::SendMessageW(::GetParent(edit), takesText(edit) ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                     reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(edit)));
  const RECT above{area.left, area.top, area.right, inside.top};
  const RECT below{area.left, inside.bottom, area.right, area.bottom};
  ::FillRect(context, &above, ground);
  ::FillRect(context, &below, ground);
  ::ReleaseDC(edit, context);
}

LRESULT received(HWND edit, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(edit, procedure, kId);
  const LRESULT result = ::DefSubclassProc(edit, message, wide, longer);
  switch (message) {
    case WM_NCCALCSIZE:
      // Both kinds of parameters begin with the rectangle.
      shrink(edit, *reinterpret_cast<RECT*>(longer));
      break;
    case WM_NCPAINT:
      fillBands(edit);
      break;
    case WM_NCHITTEST: {
      const RECT area = withinFrame(edit);
      const POINT mouse{GET_X_LPARAM(longer), GET_Y_LPARAM(longer)};
      return ::PtInRect(&area, mouse) != FALSE ? HTCLIENT : result;
    }
    case WM_SETFONT:
    case WM_ENABLE:
    case EM_SETREADONLY:
      renewFrame(edit);
      break;
    default:
      break;
  }
  return result;
}

LRESULT CALLBACK procedure(HWND edit, UINT message, WPARAM wide, LPARAM longer, UINT_PTR /*id*/,
                           DWORD_PTR /*data*/) {
  return guarded([&] { return received(edit, message, wide, longer); });
}

}  // namespace

void centreLine(HWND edit) {
  ::SetWindowSubclass(edit, procedure, kId, 0);
  renewFrame(edit);
}

}  // namespace kvrnstep::windows
