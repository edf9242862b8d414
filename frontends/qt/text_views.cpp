#include "text_views.h"

#include "qt_colors.h"
#include "qt_fonts.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;
using forms::PropertyValue;

void TextBoxView::apply(const Changes& changes) {
  ControlView::apply(changes);
  if (changes.has(Property::Font) || changes.has(Property::FontSize)) {
    useFont(*widget(), boxFont(box().font(), box().fontSize()));
  }
  if (changes.has(Property::BackColor) || changes.has(Property::ForeColor)) applyColors();
}

void TextBoxView::applyColors() {
  const QPalette own = widget()->parentWidget()->palette();
  QPalette palette = own;
  palette.setColor(QPalette::Base, colorOf(box().backColor(), own));
  palette.setColor(QPalette::Text, colorOf(box().foreColor(), own));
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   own.color(QPalette::Disabled, QPalette::Text));
  widget()->setPalette(palette);
}

SingleLineView::SingleLineView(WindowView& window, forms::TextBox& box)
    : TextBoxView(window, box), edit_(new LineEdit(box, window.parentFor(box))) {
  adopt(edit_);
}

void SingleLineView::apply(const Changes& changes) {
  TextBoxView::apply(changes);
  if (changes.has(Property::Text)) edit_->showText();
  if (changes.has(Property::Text) || changes.has(Property::SelStart)) edit_->showSelection();
}

std::optional<PropertyValue> SingleLineView::shown(Property property) const {
  const auto value = shownOfLine(*edit_, property);
  return value ? value : ControlView::shown(property);
}

MultiLineView::MultiLineView(WindowView& window, forms::TextBox& box)
    : TextBoxView(window, box), edit_(new TextEdit(box, window.parentFor(box))) {
  adopt(edit_);
}

void MultiLineView::apply(const Changes& changes) {
  TextBoxView::apply(changes);
  if (changes.has(Property::Text)) edit_->showText();
  if (changes.has(Property::Text) || changes.has(Property::SelStart)) edit_->showSelection();
}

std::optional<PropertyValue> MultiLineView::shown(Property property) const {
  switch (property) {
    case Property::Text:
      return edit_->shownText();
    case Property::SelStart:
      return static_cast<double>(edit_->selection().start);
    case Property::SelLength:
      return static_cast<double>(edit_->selection().length);
    default:
      return ControlView::shown(property);
  }
}

std::optional<PropertyValue> shownOfLine(const LineEdit& edit, Property property) {
  switch (property) {
    case Property::Text:
      return fromQt(edit.text());
    case Property::SelStart:
      return static_cast<double>(edit.selection().start);
    case Property::SelLength:
      return static_cast<double>(edit.selection().length);
    default:
      return std::nullopt;
  }
}

}  // namespace kvrnstep::qt
