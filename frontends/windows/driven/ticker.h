#pragma once

#include <windows.h>

#include <functional>

namespace kvrnstep::windows {

/// Calls an action again and again as long as it lives, from any loop of this thread, because menus
/// and message boxes have loops of the system's own. A call comes when all earlier input has been
/// handled, and also while the action itself lets messages run. There is one ticker at a time.
class Ticker {
 public:
  explicit Ticker(std::function<void()> action);
  ~Ticker();
  Ticker(const Ticker&) = delete;
  Ticker& operator=(const Ticker&) = delete;

 private:
  static void CALLBACK tick(HWND window, UINT message, UINT_PTR id, DWORD time);

  std::function<void()> action_;
  UINT_PTR id_;
};

}  // namespace kvrnstep::windows
