#include "text_views.h"

#include "line_edit.h"
#include "qt_colors.h"
#include "qt_fonts.h"
#include "text_edit.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

TextBoxView::TextBoxView(WindowView& window, forms::TextBox& box) : ControlView(window, box) {
  QWidget* parent = window.parentFor(box);
  if (box.row().multiLine) {
    use(new TextEdit(box, parent));
  } else {
    use(new LineEdit(box, parent));
  }
}

template <class Edit>
void TextBoxView::use(Edit* edit) {
  text_ = edit;
  adopt(edit);
}

void TextBoxView::setFont(const std::u16string& font, float points) {
  useFont(*widget(), boxFont(font, points));
}

void TextBoxView::recolor() {
  const auto& box = static_cast<const forms::TextBox&>(control());
  const QPalette own = widget()->parentWidget()->palette();
  QPalette palette = own;
  palette.setColor(QPalette::Base, colorOf(box.backColor(), own));
  palette.setColor(QPalette::Text, colorOf(box.foreColor(), own));
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   own.color(QPalette::Disabled, QPalette::Text));
  widget()->setPalette(palette);
}

}  // namespace kvrnstep::qt
