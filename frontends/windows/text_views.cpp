#include "text_views.h"

#include "box_font.h"
#include "scale.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Property;

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
  constexpr std::uint32_t kSystem = 0x80000000U;
  const auto bits = static_cast<std::uint32_t>(color);
  return (bits & kSystem) != 0 ? ::GetSysColor(static_cast<int>(bits & 0xFFU)) : bits & 0xFFFFFFU;
}

}  // namespace

TextBoxView::TextBoxView(WindowView& window, forms::TextBox& box)
    : ControlView(window, box), edit_(box) {
  create(WC_EDITW, styleOf(box.row()), WS_EX_CLIENTEDGE);
  edit_.adopt(handle());
}

void TextBoxView::commanded(int notification) {
  if (notification == EN_CHANGE && !applying()) edit_.edited();
}

HBRUSH TextBoxView::colored(HDC context) {
  if (!box().enabled()) return nullptr;
  ::SetTextColor(context, colorOf(box().foreColor()));
  ::SetBkColor(context, colorOf(box().backColor()));
  return ground_.get();
}

void TextBoxView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Font) || changes.has(Property::FontSize)) applyFont();
  if (changes.has(Property::BackColor) || changes.has(Property::ForeColor)) {
    ground_.reset(::CreateSolidBrush(colorOf(box().backColor())));
    ::InvalidateRect(handle(), nullptr, TRUE);
  }
  if (changes.has(Property::Text)) edit_.showText();
  if (changes.has(Property::Text) || changes.has(Property::SelStart)) edit_.showSelection();
}

void TextBoxView::applyFont() {
  Font font = boxFont(box().font(), box().fontSize(), window().dpi());
  useFont(font.get());
  font_ = std::move(font);
}

std::optional<forms::PropertyValue> TextBoxView::shown(Property property) const {
  const auto value = edit_.shown(property);
  return value ? value : ControlView::shown(property);
}

}  // namespace kvrnstep::windows
