#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct IAccPropServices;

namespace kvrnstep::windows {

class ControlView;

/// Tells screen readers, through a service of the system, what a window's controls are called and
/// what they are, if the system cannot find that out from the controls themselves. Without the
/// service it does nothing.
class AccessibleNames {
 public:
  AccessibleNames();
  /// To be destroyed before the controls, because the service forgets them by their handles.
  ~AccessibleNames();
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;

  void announce(const ControlView& view);

 private:
  /// @param part of the control, counted from 1 by the system; 0 is the control itself
  void setName(HWND control, const std::u16string& name, DWORD part = 0);
  void setRole(HWND control, LONG role);

  struct Told {
    HWND control;
    DWORD part;
  };

  bool joined_;  ///< this object has joined the thread to COM
  IAccPropServices* service_ = nullptr;
  std::vector<Told> told_;
};

}  // namespace kvrnstep::windows
