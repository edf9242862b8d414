#include "scale.h"

#include <cmath>

#include "forms/view_sync.h"

namespace kvrnstep::windows {

namespace {

forms::Rect inPixels(const RECT& rect) {
  return {static_cast<double>(rect.left), static_cast<double>(rect.top),
          static_cast<double>(rect.right - rect.left), static_cast<double>(rect.bottom - rect.top)};
}

BOOL CALLBACK add(HMONITOR monitor, HDC /*context*/, RECT* /*place*/, LPARAM screens) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (::GetMonitorInfoW(monitor, &info) != FALSE) {
    reinterpret_cast<std::vector<forms::Rect>*>(screens)->push_back(inPixels(info.rcWork));
  }
  return TRUE;
}

}  // namespace

int desktopDpi() {
  return static_cast<int>(::GetDpiForSystem());
}

int toPixels(double units, int dpi) {
  return static_cast<int>(std::lround(units * dpi / kNominalDpi));
}

double fromPixels(int pixels, int dpi) {
  return static_cast<double>(pixels) * kNominalDpi / dpi;
}

SIZE outsideOf(SIZE inside, DWORD style, bool menu, int dpi) {
  RECT frame{0, 0, inside.cx, inside.cy};
  ::AdjustWindowRectExForDpi(&frame, style, menu ? TRUE : FALSE, 0, static_cast<UINT>(dpi));
  return {frame.right - frame.left, frame.bottom - frame.top};
}

std::vector<forms::Rect> screens() {
  std::vector<forms::Rect> all;
  ::EnumDisplayMonitors(nullptr, nullptr, add, reinterpret_cast<LPARAM>(&all));
  return all;
}

POINT cornerOnScreen(const RECT& wanted) {
  const forms::Rect shown = forms::placeOnScreen(inPixels(wanted), screens());
  return {static_cast<LONG>(shown.left), static_cast<LONG>(shown.top)};
}

}  // namespace kvrnstep::windows
