#include "scale.h"

#include <cmath>

namespace kvrnstep::windows {

namespace {

/// A function of the system that it may not have.
template <class Function>
Function* systemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

template <class Function>
Function* userFunction(const char* name) {
  return systemFunction<Function>(L"user32.dll", name);
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

int dpiAt(POINT point) {
  using Get = HRESULT WINAPI(HMONITOR, int, UINT*, UINT*);
  static auto* const get = systemFunction<Get>(L"shcore.dll", "GetDpiForMonitor");
  UINT x = 0;
  UINT y = 0;
  const HMONITOR monitor = ::MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST);
  if (get == nullptr || FAILED(get(monitor, 0, &x, &y)) || y == 0) return desktopDpi();
  return static_cast<int>(y);
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
