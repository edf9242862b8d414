#include "window_class.h"

#include <utility>

#include "forms/guard.h"
#include "resources.h"

namespace kvrnstep::windows {

namespace {

constexpr const wchar_t* kClassName = L"kvrnstep.window";

class RegisteredClass {
 public:
  RegisteredClass() {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = ::DefWindowProcW;
    wanted.hInstance = thisModule();
    wanted.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wanted.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    wanted.lpszClassName = kClassName;
    wanted.hIcon = windowIcon(::GetSystemMetrics(SM_CXICON));
    wanted.hIconSm = windowIcon(::GetSystemMetrics(SM_CXSMICON));
    ::RegisterClassExW(&wanted);
  }
  /// The system does not do this when it unloads the module.
  ~RegisteredClass() { ::UnregisterClassW(kClassName, thisModule()); }
  RegisteredClass(const RegisteredClass&) = delete;
  RegisteredClass& operator=(const RegisteredClass&) = delete;
};

}  // namespace

const wchar_t* ownClass() {
  static const RegisteredClass registered;
  return kClassName;
}

void Receiver::adopt(HWND handle) {
  handle_ = handle;
  ::SetWindowSubclass(handle, procedure, reinterpret_cast<UINT_PTR>(this),
                      reinterpret_cast<DWORD_PTR>(this));
}

HWND Receiver::release() {
  if (handle_ != nullptr) {
    ::RemoveWindowSubclass(handle_, procedure, reinterpret_cast<UINT_PTR>(this));
  }
  return std::exchange(handle_, nullptr);
}

LRESULT Receiver::received(UINT message, WPARAM wide, LPARAM longer) {
  return ::DefSubclassProc(handle_, message, wide, longer);
}

LRESULT CALLBACK Receiver::procedure(HWND /*handle*/, UINT message, WPARAM wide, LPARAM longer,
                                     UINT_PTR /*id*/, DWORD_PTR receiver) {
  return forms::guarded(
      [&] { return reinterpret_cast<Receiver*>(receiver)->received(message, wide, longer); });
}

}  // namespace kvrnstep::windows
