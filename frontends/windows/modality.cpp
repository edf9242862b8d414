#include "modality.h"

namespace kvrnstep::windows {

Modality::Modality(HWND window) : exempt_(window), active_(::GetActiveWindow()) {
  ::EnumThreadWindows(::GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(this));
}

Modality::~Modality() {
  for (const HWND window : disabled_) ::EnableWindow(window, TRUE);
  if (::IsWindow(active_) != FALSE) ::SetActiveWindow(active_);
}

BOOL CALLBACK Modality::disable(HWND window, LPARAM self) {
  auto& modality = *reinterpret_cast<Modality*>(self);
  const bool takesInput = ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
  if (takesInput && window != modality.exempt_) {
    ::EnableWindow(window, FALSE);
    modality.disabled_.push_back(window);
  }
  return TRUE;
}

}  // namespace kvrnstep::windows
