#include "text_views.h"

#include "box_font.h"
#include "forms/contrast.h"
#include "scale.h"
#include "window_view.h"

namespace kvrnstep::windows {

namespace {

DWORD styleOf(const forms::ControlRow& row) {
  DWORD style = WS_TABSTOP | ES_LEFT;
  if (row.readOnly) style |= ES_READONLY;
  if (!row.multiLine) return style | ES_AUTOHSCROLL;
  style |= ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
  if (row.horizontalScroll) style |= ES_AUTOHSCROLL | WS_HSCROLL;
  return style;
}

COLORREF colorOf(std::int32_t color) {
  if (const auto place = forms::systemColor(color)) {
    return ::GetSysColor(static_cast<int>(*place));
  }
  const forms::Rgb own = forms::ownColor(color);
  return RGB(own.red, own.green, own.blue);
}

}  // namespace

TextBoxView::TextBoxView(WindowView& window, forms::TextBox& box)
    : ControlView(window, box), edit_(box) {
  create(WC_EDITW, styleOf(box.row()), WS_EX_CLIENTEDGE);
  edit_.begin(handle());
}

void TextBoxView::commanded(int notification) {
  if (notification == EN_CHANGE && !applying()) edit_.userChangedText();
}

HBRUSH TextBoxView::colored(HDC context) {
  if (!box().enabled()) return nullptr;
  ::SetTextColor(context, colorOf(box().foreColor()));
  ::SetBkColor(context, colorOf(box().backColor()));
  return ground_.get();
}

void TextBoxView::setFont(const std::u16string& font, float points) {
  useFont(boxFont(font, points, window().dpi()));
  if (!box().row().readOnly) return;
  constexpr int kGutter = 6;
  ::SendMessageW(handle(), EM_SETMARGINS, EC_LEFTMARGIN, toPixels(kGutter, window().dpi()));
}

void TextBoxView::recolor() {
  ground_.reset(::CreateSolidBrush(colorOf(box().backColor())));
  ::InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace kvrnstep::windows
