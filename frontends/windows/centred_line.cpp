#include "edit.h"
#include "handle.h"
// After windows.h, which these bring along.
#include <windowsx.h>

namespace kvrnstep::windows {

// The client area is made as high as the line. The bands that are left above and below it belong to
// the frame then, so they are painted here, and clicks there are passed on as clicks inside.

namespace {

/// Makes the system ask again how large the frame is.
void renewFrame(HWND edit) {
  ::SetWindowPos(edit, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool takesText(HWND edit) {
  const LONG_PTR style = ::GetWindowLongPtrW(edit, GWL_STYLE);
  return (style & (WS_DISABLED | ES_READONLY)) == 0;
}

}  // namespace

void CentredLine::centre(HWND edit) {
  adopt(edit);
  renewFrame(edit);
}

void CentredLine::shrink(RECT& inside) const {
  auto* const font = reinterpret_cast<HFONT>(::SendMessageW(handle(), WM_GETFONT, 0, 0));
  const LONG line = Drawing(handle(), font).metrics().tmHeight;
  const LONG spare = inside.bottom - inside.top - line;
  if (spare <= 0) return;
  inside.top += spare / 2;
  inside.bottom -= spare - spare / 2;
}

/// The client area and the bands, on the screen.
RECT CentredLine::withinFrame() const {
  RECT area{};
  ::GetWindowRect(handle(), &area);
  ::DefSubclassProc(handle(), WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&area));
  return area;
}

void CentredLine::fillBands() const {
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  ::MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
  RECT whole{};
  ::GetWindowRect(handle(), &whole);
  RECT area = withinFrame();
  ::OffsetRect(&area, -whole.left, -whole.top);
  ::OffsetRect(&inside, -whole.left, -whole.top);
  const HDC context = ::GetWindowDC(handle());
  auto* const ground = reinterpret_cast<HBRUSH>(::SendMessageW(
      ::GetParent(handle()), takesText(handle()) ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
      reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(handle())));
  ::ExcludeClipRect(context, inside.left, inside.top, inside.right, inside.bottom);
  ::FillRect(context, &area, ground);
  ::ReleaseDC(handle(), context);
}

LRESULT CentredLine::received(UINT message, WPARAM wide, LPARAM longer) {
  const LRESULT result = Receiver::received(message, wide, longer);
  switch (message) {
    case WM_NCCALCSIZE:
      // Whichever structure it is, it begins with the rectangle.
      shrink(*reinterpret_cast<RECT*>(longer));
      break;
    case WM_NCPAINT:
      fillBands();
      break;
    case WM_NCHITTEST: {
      const RECT area = withinFrame();
      const POINT mouse{GET_X_LPARAM(longer), GET_Y_LPARAM(longer)};
      return ::PtInRect(&area, mouse) != FALSE ? HTCLIENT : result;
    }
    case WM_SETFONT:
    case WM_ENABLE:
    case EM_SETREADONLY:
      renewFrame(handle());
      break;
    default:
      break;
  }
  return result;
}

}  // namespace kvrnstep::windows
