#include "tool_tips.h"

// After the other one.
#include <commctrl.h>

#include <array>
#include <string>

#include "resources.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

TTTOOLINFOW toolOf(HWND owner, HWND control, wchar_t* text) {
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = owner;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text;
  return tool;
}

}  // namespace

ToolTips::ToolTips(HWND owner)
    : owner_(owner),
      tips_(::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0,
                              0, 0, 0, owner, nullptr, thisModule(), nullptr)) {}

void ToolTips::add(HWND control, std::u16string_view text) {
  std::u16string note(text);
  TTTOOLINFOW tool = toolOf(owner_, control, text::wide(note.data()));
  ::SendMessageW(tips_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace kvrnstep::windows
