#include "ticker.h"

#include <map>
#include <utility>

#include "guard.h"

namespace kvrnstep::windows {

namespace {

/// A timer without a window tells nothing but its number.
std::map<UINT_PTR, Ticker*>& tickers() {
  static std::map<UINT_PTR, Ticker*> all;
  return all;
}

}  // namespace

Ticker::Ticker(std::function<void()> action)
    : action_(std::move(action)), id_(::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, tick)) {
  tickers().emplace(id_, this);
}

Ticker::~Ticker() {
  ::KillTimer(nullptr, id_);
  tickers().erase(id_);
}

void CALLBACK Ticker::tick(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
  const auto found = tickers().find(id);
  if (found == tickers().end() || found->second->running_) return;
  found->second->running_ = true;
  guarded([&] {
    found->second->action_();
    return 0;
  });
  // The action may have ended the ticker.
  if (const auto still = tickers().find(id); still != tickers().end()) {
    still->second->running_ = false;
  }
}

}  // namespace kvrnstep::windows
