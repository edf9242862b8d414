#include "tool_tips.h"

// After the other one.
#include <commctrl.h>

#include <string>

#include "resources.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

WindowHandle toolTipsOf(HWND window) {
  return WindowHandle(::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                        WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0, window, nullptr,
                                        thisModule(), nullptr));
}

void addToolTip(HWND tips, HWND control, std::u16string_view text) {
  std::u16string note(text);
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ::GetWindow(tips, GW_OWNER);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text::wide(note.data());
  ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace kvrnstep::windows
