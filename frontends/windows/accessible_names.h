#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct IAccPropServices;

namespace kvrnstep::windows {

class ControlView;

/// What a window's controls are called and what they are, for screen readers, where the system
/// could not tell from the controls themselves. It hears of nothing when the system lacks the
/// service.
class AccessibleNames {
 public:
  AccessibleNames();
  /// To be destroyed before the controls, because the system keeps what it was told by their
  /// handles.
  ~AccessibleNames();
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;

  void announce(const ControlView& view);

 private:
  /// The part of a control is one of those that the system counts from 1; 0 is the control.
  void setName(HWND control, const std::u16string& name, DWORD part = 0);
  void setRole(HWND control, LONG role);

  struct Told {
    HWND control;
    DWORD part;
  };

  bool joined_;  ///< the thread has joined COM for this
  IAccPropServices* service_ = nullptr;
  std::vector<Told> told_;
};

}  // namespace kvrnstep::windows
