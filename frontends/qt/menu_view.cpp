#include "menu_view.h"

#include <QKeySequence>
#include <QMenuBar>

#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "qt_colors.h"
#include "qt_fonts.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

using forms::Property;

namespace {

/// A dark menu on a dark list would have no edge.
QPalette menuPalette(QPalette palette) {
  if (isDark(palette)) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  return palette;
}

}  // namespace

MenuView::MenuView(WindowView& window, forms::MenuEntry& entry)
    : ControlView(window, entry), parent_(window.menuAbove(entry)) {
  if (entry.opensMenu()) {
    menu_ = new QMenu(parent_ == nullptr ? window.parentFor(entry) : parent_->menu());
    useFont(*menu_, captionFont());
    menu_->setAccessibleName(toQt(forms::accessibleName(entry)));
    action_ = menu_->menuAction();
  } else {
    action_ = new QAction(parent_->menu());
    action_->setShortcut(
        QKeySequence::fromString(toQt(entry.row().shortcut), QKeySequence::PortableText));
    QObject::connect(action_, &QAction::triggered, action_, [this] { triggered(); });
  }
  if (parent_ != nullptr) {
    parent_->menu()->addAction(action_);
  } else if (entry.visible()) {
    window.menuBar()->addAction(action_);
  }
}

void MenuView::triggered() {
  // The widget has already changed its check mark; the control decides.
  mark(Property::Checked);
  forms::userClicked(control());
}

void MenuView::recolor() {
  if (menu_ == nullptr) return;
  menu_->setPalette(QPalette());
  menu_->setPalette(menuPalette(menu_->palette()));
}

void MenuView::setEntry(const forms::DrawnEntry& entry) {
  action_->setSeparator(entry.separator);
  // Some styles would write the text of a separator.
  action_->setText(entry.separator ? QString() : toQt(entry.caption));
  action_->setEnabled(entry.enabled);
  action_->setVisible(entry.visible);
  action_->setCheckable(entry.checked);
  action_->setChecked(entry.checked);
}

}  // namespace kvrnstep::qt
