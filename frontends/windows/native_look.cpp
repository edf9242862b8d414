#include "native_look.h"

// After the other one.
#include <commctrl.h>

#include "resource_ids.h"
#include "resources.h"

namespace kvrnstep::windows {

namespace {

/// Made with the first window, and released when the module is unloaded.
class ControlsContext {
 public:
  ControlsContext() {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.hModule = thisModule();
    wanted.lpResourceName = MAKEINTRESOURCEW(IDM_COMMON_CONTROLS);
    context_ = ::CreateActCtxW(&wanted);
  }
  ~ControlsContext() {
    if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
  }
  ControlsContext(const ControlsContext&) = delete;
  ControlsContext& operator=(const ControlsContext&) = delete;

  [[nodiscard]] bool activate(ULONG_PTR& cookie) const {
    return context_ != INVALID_HANDLE_VALUE && ::ActivateActCtx(context_, &cookie) != FALSE;
  }

 private:
  HANDLE context_;
};

}  // namespace

NativeLook::NativeLook()
    : hostScaling_(::SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {
  static const ControlsContext context;
  activated_ = context.activate(cookie_);
  const INITCOMMONCONTROLSEX wanted{
      sizeof wanted, ICC_STANDARD_CLASSES | ICC_UPDOWN_CLASS | ICC_BAR_CLASSES | ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&wanted);
}

NativeLook::~NativeLook() {
  if (activated_) ::DeactivateActCtx(0, cookie_);
  ::SetThreadDpiAwarenessContext(hostScaling_);
}

}  // namespace kvrnstep::windows
