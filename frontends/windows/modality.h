#pragma once

#include <windows.h>

#include <vector>

namespace kvrnstep::windows {

/// While it lives, all other windows of this thread, the host's too, take no input from the user.
/// Afterwards the one that had the keyboard has it again.
class Modality {
 public:
  /// `window` is the one that does; null for none.
  explicit Modality(HWND window);
  ~Modality();
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

 private:
  static BOOL CALLBACK disable(HWND window, LPARAM self);

  HWND exempt_;
  HWND active_;
  std::vector<HWND> disabled_;
};

}  // namespace kvrnstep::windows
