#include "tool_tips.h"

// After the other one.
#include <commctrl.h>

#include <string>

#include "resources.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

WindowHandle toolTipsOf(HWND window) {
  WindowHandle tips(::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, window,
                                      nullptr, thisModule(), nullptr));
  // The longest names of files would be wider than the screen.
  ::SendMessageW(tips.get(), TTM_SETMAXTIPWIDTH, 0, ::GetSystemMetrics(SM_CXSCREEN) / 2);
  return tips;
}

namespace {

void tell(HWND tips, UINT message, HWND control, std::u16string_view text) {
  std::u16string note(text);
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ::GetWindow(tips, GW_OWNER);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text::wide(note.data());
  ::SendMessageW(tips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void addToolTip(HWND tips, HWND control, std::u16string_view text) {
  tell(tips, TTM_ADDTOOLW, control, text);
}

void changeToolTip(HWND tips, HWND control, std::u16string_view text) {
  ::SendMessageW(tips, TTM_POP, 0, 0);
  tell(tips, TTM_UPDATETIPTEXTW, control, text);
}

}  // namespace kvrnstep::windows
