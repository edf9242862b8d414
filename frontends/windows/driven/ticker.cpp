#include "ticker.h"

#include <utility>

#include "forms/guard.h"

namespace kvrnstep::windows {

namespace {

/// A timer without a window does not say which object has set it.
Ticker* theTicker = nullptr;

}  // namespace

Ticker::Ticker(std::function<void()> action)
    : action_(std::move(action)), id_(::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, tick)) {
  theTicker = this;
}

Ticker::~Ticker() {
  ::KillTimer(nullptr, id_);
  theTicker = nullptr;
}

void CALLBACK Ticker::tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
  if (theTicker == nullptr) return;
  forms::guarded([] { theTicker->action_(); });
}

}  // namespace kvrnstep::windows
