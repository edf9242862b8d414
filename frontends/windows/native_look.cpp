#include "native_look.h"

// After the other one.
#include <commctrl.h>

#include "resource_ids.h"
#include "resources.h"
#include "scale.h"

namespace kvrnstep::windows {

namespace {

/// Made with the first window and kept, for windows that outlast a call would miss it.
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

void loadControls() {
  static const bool loaded = [] {
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES | ICC_UPDOWN_CLASS |
                                                         ICC_BAR_CLASSES | ICC_WIN95_CLASSES};
    return ::InitCommonControlsEx(&wanted) != FALSE;
  }();
  static_cast<void>(loaded);
}

}  // namespace

NativeLook::NativeLook() : hostScaling_(scaleThreadByMonitor()) {
  const HANDLE context = controlsContext();
  activated_ = context != INVALID_HANDLE_VALUE && ::ActivateActCtx(context, &cookie_) != FALSE;
  loadControls();
}

NativeLook::~NativeLook() {
  if (activated_) ::DeactivateActCtx(0, cookie_);
  restoreThreadScaling(hostScaling_);
}

}  // namespace kvrnstep::windows
