#pragma once

#include <windows.h>

#include <functional>

namespace kvrnstep::windows {

/// Calls an action again and again as long as it lives, from whatever loop of this thread runs:
/// menus and message boxes wait in loops of the system's own. A call comes when all input before it
/// has been dealt with, and also while the action itself lets messages run. There is one at a time.
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
