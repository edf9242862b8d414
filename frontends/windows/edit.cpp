#include "edit.h"

#include "centred_line.h"
#include "control_view.h"
#include "forms/user_actions.h"
#include "guard.h"

namespace kvrnstep::windows {

using forms::Property;
using forms::TextSelection;

namespace {

/// After these the caret or the mark may be elsewhere.
bool movesCaret(UINT message) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_CUT:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case EM_SETSEL:
    case EM_REPLACESEL:
      return true;
    default:
      return false;
  }
}

}  // namespace

Edit::~Edit() {
  if (handle_ != nullptr) ::RemoveWindowSubclass(handle_, procedure, 0);
}

void Edit::adopt(HWND handle) {
  handle_ = handle;
  ::SetWindowSubclass(handle_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
  if (!box().row().multiLine) centreLine(handle_);
  ::SendMessageW(handle_, EM_SETLIMITTEXT, static_cast<WPARAM>(box().row().maxLength), 0);
}

LRESULT CALLBACK Edit::procedure(HWND /*handle*/, UINT message, WPARAM wide, LPARAM longer,
                                 UINT_PTR /*id*/, DWORD_PTR edit) {
  return guarded([&] { return reinterpret_cast<Edit*>(edit)->received(message, wide, longer); });
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
  const LRESULT result = ::DefSubclassProc(handle_, message, wide, longer);
  if (movesCaret(message)) userMovedCaret();
  return result;
}

/// By a click, which then has nothing else to do.
bool Edit::entered() {
  if (::GetFocus() == handle_) return false;
  ::SetFocus(handle_);
  return forms::userEntered(box(), forms::Way::Click);
}

/// A character of two units goes as a whole, which not every system sees to.
void Edit::markPair(bool beforeCaret) {
  const TextSelection caret = shownSelection();
  if (caret.length != 0 || (beforeCaret && caret.start < 2)) return;
  const std::size_t at = beforeCaret ? caret.start - 2 : caret.start;
  const std::u16string text = textOf(handle_);
  if (at + 1 >= text.size() || !IS_SURROGATE_PAIR(text[at], text[at + 1])) return;
  ::SendMessageW(handle_, EM_SETSEL, at, static_cast<LPARAM>(at + 2));
}

LRESULT Edit::wantedKeys(WPARAM wide, LPARAM longer) const {
  const LRESULT wanted = ::DefSubclassProc(handle_, WM_GETDLGCODE, wide, longer);
  const auto* message = reinterpret_cast<const MSG*>(longer);
  const bool leads = message != nullptr && (wide == VK_TAB || wide == VK_ESCAPE);
  // Several lines would take these keys for themselves: Tab leads on, and Escape closes nothing.
  return leads ? wanted & ~LRESULT{DLGC_WANTALLKEYS | DLGC_WANTTAB} : wanted;
}

std::u16string Edit::shownText() const {
  std::u16string text = textOf(handle_);
  // The system's texts end at the first NUL.
  return text == box().text().substr(0, box().text().find(u'\0')) ? box().text() : text;
}

TextSelection Edit::selectionIn(const std::u16string& /*text*/) const {
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageW(handle_, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
  return {start, end - start};
}

void Edit::setText(const std::u16string& text) {
  windows::showText(handle_, text);
}

void Edit::setSelection(TextSelection selection) {
  ::SendMessageW(handle_, EM_SETSEL, selection.start,
                 static_cast<LPARAM>(selection.start + selection.length));
  ::SendMessageW(handle_, EM_SCROLLCARET, 0, 0);
}

void Edit::changed() {
  if (!showsText()) userChangedText();
}

}  // namespace kvrnstep::windows
