#include "window_class.h"

#include "guard.h"
#include "resources.h"

namespace kvrnstep::windows {

namespace {

constexpr const wchar_t* kClassName = L"kvrnstep.window";

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    const auto* made = reinterpret_cast<const CREATESTRUCTW*>(longer);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made->lpCreateParams));
  }
  auto* receiver = reinterpret_cast<Receiver*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (receiver == nullptr) return ::DefWindowProcW(window, message, wide, longer);
  return guarded([&] { return receiver->received(window, message, wide, longer); });
}

class RegisteredClass {
 public:
  RegisteredClass() {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = thisModule();
    wanted.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    wanted.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    wanted.lpszClassName = kClassName;
    wanted.hIcon = windowIcon(::GetSystemMetrics(SM_CXICON));
    wanted.hIconSm = windowIcon(::GetSystemMetrics(SM_CXSMICON));
    ::RegisterClassExW(&wanted);
  }
  /// Otherwise the procedure of a module that has been unloaded would stay behind.
  ~RegisteredClass() { ::UnregisterClassW(kClassName, thisModule()); }
  RegisteredClass(const RegisteredClass&) = delete;
  RegisteredClass& operator=(const RegisteredClass&) = delete;
};

}  // namespace

const wchar_t* ownClass() {
  static const RegisteredClass registered;
  return kClassName;
}

}  // namespace kvrnstep::windows
