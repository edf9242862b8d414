#include "spinner_view.h"

#include "forms/user_actions.h"
#include "window_view.h"

namespace kvrnstep::windows {

SpinnerView::SpinnerView(WindowView& window, forms::Spinner& spinner)
    : ControlView(window, spinner) {
  create(UPDOWN_CLASSW, UDS_ARROWKEYS);
  // The widget's own value stays in the middle of its range, because the control has the real one
  // and both arrows are to work always.
  constexpr int kEnd = 100;
  ::SendMessageW(handle(), UDM_SETRANGE32, 0, kEnd);
  ::SendMessageW(handle(), UDM_SETPOS32, 0, kEnd / 2);
}

void SpinnerView::setBuddy(forms::ControlSync& box) {
  const HWND edit = static_cast<ControlView&>(box).keyTarget();
  ::SendMessageW(handle(), UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit), 0);
}

std::optional<LRESULT> SpinnerView::told(UINT message, WPARAM /*wide*/, LPARAM longer) {
  constexpr LRESULT kRefused = 1;
  if (message != WM_NOTIFY) return std::nullopt;
  const auto& turned = *reinterpret_cast<const NMUPDOWN*>(longer);
  if (turned.hdr.code != static_cast<UINT>(UDN_DELTAPOS)) return std::nullopt;
  forms::userSpun(static_cast<forms::Spinner&>(control()), turned.iDelta > 0);
  return kRefused;
}

}  // namespace kvrnstep::windows
