#include "native_look.h"

// After the other one.
#include <commctrl.h>

#include "resource_ids.h"
#include "resources.h"

namespace kvrnstep::windows {

namespace {

/// Made once, with the first window.
HANDLE controlsContext() {
  static const HANDLE context = [] {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.hModule = thisModule();
    wanted.lpResourceName = MAKEINTRESOURCEW(IDM_COMMON_CONTROLS);
    return ::CreateActCtxW(&wanted);
  }();
  return context;
}

}  // namespace

NativeLook::NativeLook()
    : hostScaling_(::SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {
  const HANDLE context = controlsContext();
  activated_ = context != INVALID_HANDLE_VALUE && ::ActivateActCtx(context, &cookie_) != FALSE;
  const INITCOMMONCONTROLSEX wanted{
      sizeof wanted, ICC_STANDARD_CLASSES | ICC_UPDOWN_CLASS | ICC_BAR_CLASSES | ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&wanted);
}

NativeLook::~NativeLook() {
  if (activated_) ::DeactivateActCtx(0, cookie_);
  ::SetThreadDpiAwarenessContext(hostScaling_);
}

}  // namespace kvrnstep::windows
