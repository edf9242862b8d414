#include "scale.h"

#include <cmath>

namespace kvrnstep::windows {

namespace {

/// A function of the system that it may not have.
template <class Function>
Function* userFunction(const char* name) {
  const HMODULE user = ::GetModuleHandleW(L"user32.dll");
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(user, name)));
}

}  // namespace

int desktopDpi() {
  const HDC screen = ::GetDC(nullptr);
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kNominalDpi;
}

int dpiOf(HWND window) {
  static auto* const get = userFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
  const UINT dpi = get == nullptr ? 0 : get(window);
  return dpi > 0 ? static_cast<int>(dpi) : desktopDpi();
}

int toPixels(double units, int dpi) {
  return static_cast<int>(std::lround(units * dpi / kNominalDpi));
}

double fromPixels(int pixels, int dpi) {
  return static_cast<double>(pixels) * kNominalDpi / dpi;
}

SIZE outsideOf(SIZE inside, DWORD style, bool menu, int dpi) {
  using Adjust = BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT);
  static auto* const adjust = userFunction<Adjust>("AdjustWindowRectExForDpi");
  RECT frame{0, 0, inside.cx, inside.cy};
  if (adjust != nullptr) {
    adjust(&frame, style, menu ? TRUE : FALSE, 0, static_cast<UINT>(dpi));
  } else {
    ::AdjustWindowRectEx(&frame, style, menu ? TRUE : FALSE, 0);
  }
  return {frame.right - frame.left, frame.bottom - frame.top};
}

namespace {

using SetScaling = HANDLE WINAPI(HANDLE);

SetScaling* setScaling() {
  static auto* const set = userFunction<SetScaling>("SetThreadDpiAwarenessContext");
  return set;
}

}  // namespace

HANDLE scaleThreadByMonitor() {
  auto* const byMonitor = reinterpret_cast<HANDLE>(INT_PTR{-4});  // with title bar and menus
  return setScaling() == nullptr ? nullptr : setScaling()(byMonitor);
}

void restoreThreadScaling(HANDLE before) {
  if (before != nullptr) setScaling()(before);
}

}  // namespace kvrnstep::windows
