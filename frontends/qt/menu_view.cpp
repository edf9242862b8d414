#include "menu_view.h"

#include <QKeySequence>
#include <QMenuBar>
#include <algorithm>

#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "qt_colors.h"
#include "qt_fonts.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

namespace {

bool holdsEntries(const forms::Control& menu) {
  return std::ranges::any_of(menu.window().controls(),
                             [&](const auto& control) { return control->container() == &menu; });
}

/// A dark menu on a dark list would have no edge.
QPalette menuPalette(QPalette palette) {
  if (isDark(palette)) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  return palette;
}

}  // namespace

MenuView::MenuView(WindowView& window, forms::MenuEntry& entry, MenuView* parent)
    : ControlView(window, entry), parent_(parent) {
  if (parent == nullptr || holdsEntries(entry)) {
    menu_ = new QMenu(parent == nullptr ? window.parentFor(entry) : parent->menu());
    useFont(*menu_, captionFont());
    menu_->setAccessibleName(toQt(forms::accessibleName(entry)));
    action_ = menu_->menuAction();
  } else {
    action_ = new QAction(parent->menu());
    action_->setShortcut(
        QKeySequence::fromString(toQt(entry.row().shortcut), QKeySequence::PortableText));
    QObject::connect(action_, &QAction::triggered, action_, [this] { triggered(); });
  }
  if (parent != nullptr) {
    parent->menu()->addAction(action_);
  } else if (entry.visible()) {
    window.menuBar()->addAction(action_);
  }
}

void MenuView::triggered() {
  // The widget has already changed its check mark; the control decides.
  mark(Property::Checked);
  forms::userClicked(control());
}

void MenuView::apply(const Changes& changes) {
  if (changes.has(Property::ForeColor) && menu_ != nullptr) {
    menu_->setPalette(QPalette());
    menu_->setPalette(menuPalette(menu_->palette()));
  }
  if (changes.has(Property::Caption)) {
    action_->setSeparator(entry().separator());
    // Some styles would write the text of a separator.
    action_->setText(entry().separator() ? QString() : toQt(forms::drawnCaption(entry())));
  }
  if (changes.has(Property::Enabled)) action_->setEnabled(entry().enabled());
  if (changes.has(Property::Visible)) action_->setVisible(entry().visible());
  if (changes.has(Property::Checked)) {
    action_->setCheckable(entry().checked());
    action_->setChecked(entry().checked());
  }
}

std::optional<forms::PropertyValue> MenuView::shown(Property property) const {
  switch (property) {
    case Property::Caption:
      return action_->isSeparator() ? u"-" : fromQt(action_->text());
    case Property::Enabled:
      // What cannot be seen counts as disabled, whatever it was set to.
      if (!action_->isVisible()) return std::nullopt;
      return action_->isEnabled();
    case Property::Visible:
      return action_->isVisible();
    case Property::Checked:
      return action_->isChecked();
    default:
      return std::nullopt;
  }
}

}  // namespace kvrnstep::qt
