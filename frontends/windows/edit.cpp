#include "edit.h"

// After windows.h, which that brings along.
#include <imm.h>

#include <algorithm>
#include <array>

#include "control_view.h"
#include "forms/contrast.h"
#include "forms/user_actions.h"
#include "handle.h"
#include "idle_scroll_bars.h"
#include "resources.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

using forms::TextSelection;

namespace {

/// Messages that may change the text …
constexpr std::array<UINT, 8> kEdits{WM_KEYDOWN, WM_CHAR, WM_CUT,  WM_PASTE,
                                     WM_CLEAR,   WM_UNDO, EM_UNDO, EM_REPLACESEL};
/// … or only move the caret or the selection …
constexpr std::array<UINT, 5> kMoves{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_MOUSEMOVE,
                                     EM_SETSEL};
/// … or give the text more or less room, or another one.
constexpr std::array<UINT, 3> kResizes{WM_SETTEXT, WM_SIZE, WM_SETFONT};

}  // namespace

void Edit::begin(HWND edit) {
  adopt(edit);
  if (!box().row().multiLine) line_.centre(edit);
  // Such a box judges each character, and an input method would put in others.
  if (box().onKeyPress) ::ImmAssociateContextEx(edit, nullptr, 0);
  ::SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(box().row().maxLength), 0);
}

LRESULT Edit::received(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_GETDLGCODE) return wantedKeys(wide, longer);
  if (message == WM_CHAR && box().onKeyPress &&
      !forms::userTypes(box(), static_cast<char16_t>(wide))) {
    return 0;
  }
  if (message == WM_LBUTTONDOWN && entered()) return 0;
  if (message == WM_CHAR && wide == VK_BACK) markPair(true);
  if (message == WM_KEYDOWN && wide == VK_DELETE) markPair(false);
  const LRESULT result = Receiver::received(message, wide, longer);
  const auto isIn = [message](const auto& all) { return std::ranges::count(all, message) > 0; };
  if (box().row().multiLine && (isIn(kEdits) || isIn(kResizes))) {
    fitScrollBars(handle(), !box().row().horizontalScroll);
  }
  if (isIn(kEdits) || isIn(kMoves)) userMovedCaret();
  if (box().row().readOnly) showFocus(message);
  return result;
}

/// Nothing can be typed where a caret would be, so the frame tells what has the keyboard.
void Edit::showFocus(UINT message) const {
  const bool moves = message == WM_SETFOCUS || message == WM_KILLFOCUS;
  // The control makes its caret anew with these messages.
  if (message == WM_SETFOCUS || message == WM_SETFONT) ::HideCaret(handle());
  if (moves) ::RedrawWindow(handle(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
  if (message != WM_NCPAINT || ::GetFocus() != handle()) return;
  const forms::Rgb color =
      forms::standingOut(systemColor(COLOR_HIGHLIGHT), systemColor(COLOR_BTNFACE), forms::kVisible);
  const Brush brush(::CreateSolidBrush(RGB(color.red, color.green, color.blue)));
  RECT frame{};
  ::GetWindowRect(handle(), &frame);
  ::OffsetRect(&frame, -frame.left, -frame.top);
  const HDC context = ::GetWindowDC(handle());
  for (int line = 0; line < ::GetSystemMetrics(SM_CXEDGE); ++line) {
    ::FrameRect(context, &frame, brush.get());
    ::InflateRect(&frame, -1, -1);
  }
  ::ReleaseDC(handle(), context);
}

/// Gives the box the keyboard on a click. True: the click has no other effect.
bool Edit::entered() {
  if (::GetFocus() == handle()) return false;
  ::SetFocus(handle());
  return forms::userEntered(box(), forms::Way::Click);
}

/// Selects both units of a character that has two, because not every version of the system deletes
/// them together.
void Edit::markPair(bool beforeCaret) {
  const TextSelection caret = shownSelection();
  if (caret.length != 0 || (beforeCaret && caret.start < 2)) return;
  const std::size_t at = beforeCaret ? caret.start - 2 : caret.start;
  const std::u16string text = textOf(handle());
  if (at + 1 >= text.size() || !IS_SURROGATE_PAIR(text[at], text[at + 1])) return;
  ::SendMessageW(handle(), EM_SETSEL, at, static_cast<LPARAM>(at + 2));
}

LRESULT Edit::wantedKeys(WPARAM wide, LPARAM longer) {
  const LRESULT wanted = Receiver::received(WM_GETDLGCODE, wide, longer);
  const auto* message = reinterpret_cast<const MSG*>(longer);
  // Of several lines it would take Tab for itself, and Escape would close its parent. In a combo
  // box Escape closes the list.
  const bool leads =
      box().row().multiLine && message != nullptr && (wide == VK_TAB || wide == VK_ESCAPE);
  return leads ? wanted & ~LRESULT{DLGC_WANTALLKEYS | DLGC_WANTTAB} : wanted;
}

std::u16string Edit::shownText() const {
  std::u16string text = textOf(handle());
  // The system's texts end at the first NUL.
  return text == box().text().substr(0, box().text().find(u'\0')) ? box().text() : text;
}

TextSelection Edit::selectionIn(const std::u16string& /*text*/) const {
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageW(handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
  return {start, end - start};
}

void Edit::setText(const std::u16string& text) {
  ::SetWindowTextW(handle(), text::wide(text));
}

void Edit::setSelection(TextSelection selection) {
  ::SendMessageW(handle(), EM_SETSEL, selection.start,
                 static_cast<LPARAM>(selection.start + selection.length));
  ::SendMessageW(handle(), EM_SCROLLCARET, 0, 0);
}

}  // namespace kvrnstep::windows
