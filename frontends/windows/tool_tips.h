#pragma once

#include <windows.h>

#include <string_view>

#include "handle.h"

namespace kvrnstep::windows {

/// The yellow notes of one window.
class ToolTips {
 public:
  explicit ToolTips(HWND owner);

  void add(HWND control, std::u16string_view text);

 private:
  HWND owner_;
  WindowHandle tips_;
};

}  // namespace kvrnstep::windows
