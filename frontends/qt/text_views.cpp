#include "text_views.h"

#include "line_edit.h"
#include "looks.h"
#include "text_edit.h"
#include "window_view.h"

namespace kvrnstep::qt {

namespace {

QWidget* makeBox(forms::TextBox& box, QWidget* parent) {
  if (box.row().multiLine) return new TextEdit(box, parent);
  return new LineEdit(box, parent);
}

}  // namespace

TextBoxView::TextBoxView(WindowView& window, forms::TextBox& box)
    : ControlView(window, box, makeBox(box, window.parentFor(box))) {}

void TextBoxView::setFont(const std::u16string& font, float points) {
  useFont(*widget(), boxFont(font, points));
}

void TextBoxView::recolor() {
  const auto& box = static_cast<const forms::TextBox&>(control());
  const QPalette own = widget()->parentWidget()->palette();
  const QColor ground = colorOf(box.backColor(), own);
  const QColor text = colorOf(box.foreColor(), own);
  // Most have those of the window, and to set a palette takes its time.
  const bool usual = ground == own.color(QPalette::Base) && text == own.color(QPalette::Text);
  if (usual && !widget()->testAttribute(Qt::WA_SetPalette)) return;
  QPalette palette = own;
  palette.setColor(QPalette::Base, ground);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   own.color(QPalette::Disabled, QPalette::Text));
  widget()->setPalette(palette);
}

}  // namespace kvrnstep::qt
