#include "spinner_view.h"

#include "accessible_names.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "window_view.h"

namespace kvrnstep::windows {

SpinnerView::SpinnerView(WindowView& window, forms::Spinner& spinner)
    : ControlView(window, spinner) {
  create(UPDOWN_CLASSW, UDS_ARROWKEYS);
  // Kept in the middle, so that both arrows always have somewhere to go: the control knows where
  // its range ends.
  constexpr int kEnd = 100;
  ::SendMessageW(handle(), UDM_SETRANGE32, 0, kEnd);
  ::SendMessageW(handle(), UDM_SETPOS32, 0, kEnd / 2);
}

void SpinnerView::setBuddy(forms::ControlSync& box) {
  const HWND edit = static_cast<ControlView&>(box).keyTarget();
  ::SendMessageW(handle(), UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit), 0);
}

void SpinnerView::announce(AccessibleNames& names) const {
  constexpr DWORD kUp = 1;
  constexpr DWORD kDown = 2;
  ControlView::announce(names);
  const auto& spinner = static_cast<const forms::Spinner&>(control());
  names.setName(handle(), forms::accessibleArrowName(spinner, true), kUp);
  names.setName(handle(), forms::accessibleArrowName(spinner, false), kDown);
}

LRESULT SpinnerView::notified(const NMHDR& notification) {
  constexpr LRESULT kRefused = 1;
  if (notification.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
  const int step = reinterpret_cast<const NMUPDOWN&>(notification).iDelta;
  forms::userSpun(static_cast<forms::Spinner&>(control()), step > 0);
  return kRefused;
}

LRESULT SpinnerView::received(UINT message, WPARAM wide, LPARAM longer) {
  const LRESULT result = ControlView::received(message, wide, longer);
  if (const auto button = releasedButton(message); button && isInside(handle(), longer)) {
    forms::userReleasedMouse(control(), *button);
  }
  return result;
}

}  // namespace kvrnstep::windows
