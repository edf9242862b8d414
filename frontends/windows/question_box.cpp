#include "question_box.h"

#include "box_font.h"
#include "control_view.h"
#include "forms/guard.h"
#include "resources.h"
#include "scale.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

constexpr int kLine = 100;

// Pixels at 96 dots per inch.
constexpr int kMargin = 10;
constexpr int kWidth = 280;
constexpr int kLineHeight = 21;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;

/// A dialog without controls. They are added when the height of the prompt is known.
struct Template {
  alignas(4) DLGTEMPLATE box{};
  WORD menu = 0;
  WORD className = 0;
  WORD title = 0;
};

void centre(HWND box) {
  const HWND owner = ::GetWindow(box, GW_OWNER);
  RECT around{};
  if (owner == nullptr || ::GetWindowRect(owner, &around) == FALSE) {
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  }
  RECT self{};
  ::GetWindowRect(box, &self);
  ::OffsetRect(&self, (around.left + around.right - self.right - self.left) / 2,
               (around.top + around.bottom - self.bottom - self.top) / 2);
  const POINT corner = cornerOnScreen(self);
  ::SetWindowPos(box, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

std::optional<std::u16string> QuestionBox::ask(HWND owner) {
  Template empty;
  empty.box.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
  const INT_PTR closedBy = ::DialogBoxIndirectParamW(thisModule(), &empty.box, owner, procedure,
                                                     reinterpret_cast<LPARAM>(this));
  if (closedBy != IDOK) return std::nullopt;
  return answer_;
}

INT_PTR CALLBACK QuestionBox::procedure(HWND box, UINT message, WPARAM wide, LPARAM longer) {
  return forms::guarded([&]() -> INT_PTR {
    if (message == WM_INITDIALOG) {
      ::SetWindowLongPtrW(box, DWLP_USER, longer);
      reinterpret_cast<QuestionBox*>(longer)->build(box);
      return FALSE;  // the focus has been set
    }
    if (message != WM_COMMAND || (LOWORD(wide) != IDOK && LOWORD(wide) != IDCANCEL)) return FALSE;
    auto* self = reinterpret_cast<QuestionBox*>(::GetWindowLongPtrW(box, DWLP_USER));
    self->answer_ = textOf(::GetDlgItem(box, kLine));
    ::EndDialog(box, LOWORD(wide));
    return TRUE;
  });
}

void QuestionBox::build(HWND box) {
  const auto dpi = static_cast<int>(::GetDpiForWindow(box));
  font_ = captionFont(dpi);
  const auto scaled = [dpi](int pixels) { return toPixels(pixels, dpi); };
  const int margin = scaled(kMargin);
  const int right = margin + scaled(kWidth);
  ::SetWindowTextW(box, text::wide(question_.title));

  int top = margin;
  const int height = promptHeight(box, right - margin);
  add(box, WC_STATICW, question_.prompt, SS_LEFT | SS_NOPREFIX, {margin, top, right, top + height},
      -1);
  top += height + margin;
  const HWND line = add(box, WC_EDITW, question_.proposal, WS_TABSTOP | ES_AUTOHSCROLL,
                        {margin, top, right, top + scaled(kLineHeight)}, kLine);
  line_.centre(line);
  top += scaled(kLineHeight) + margin;
  const int cancel = right - scaled(kButtonWidth);
  const int ok = cancel - margin - scaled(kButtonWidth);
  const int bottom = top + scaled(kButtonHeight);
  add(box, WC_BUTTONW, u"OK", WS_TABSTOP | BS_DEFPUSHBUTTON,
      {ok, top, ok + scaled(kButtonWidth), bottom}, IDOK);
  add(box, WC_BUTTONW, u"Cancel", WS_TABSTOP | BS_PUSHBUTTON, {cancel, top, right, bottom},
      IDCANCEL);

  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(box, GWL_STYLE));
  const SIZE outside = outsideOf({right + margin, bottom + margin}, style, false, dpi);
  ::SetWindowPos(box, nullptr, 0, 0, outside.cx, outside.cy, SWP_NOMOVE | SWP_NOZORDER);
  centre(box);
  ::SendMessageW(line, EM_SETSEL, 0, -1);
  ::SetFocus(line);
}

HWND QuestionBox::add(HWND box, const wchar_t* className, const std::u16string& text, DWORD style,
                      RECT place, int id) const {
  const bool framed = id == kLine;
  const HWND control = ::CreateWindowExW(
      framed ? WS_EX_CLIENTEDGE : 0, className, text::wide(text), WS_CHILD | WS_VISIBLE | style,
      place.left, place.top, place.right - place.left, place.bottom - place.top, box,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), thisModule(), nullptr);
  ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  return control;
}

int QuestionBox::promptHeight(HWND box, int width) const {
  RECT room{0, 0, width, 0};
  ::DrawTextW(Drawing(box, font_.get()), text::wide(question_.prompt), -1, &room,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  return static_cast<int>(room.bottom);
}

}  // namespace kvrnstep::windows
