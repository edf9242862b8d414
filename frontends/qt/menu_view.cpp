#include "menu_view.h"

#include <QKeySequence>
#include <QMenuBar>
#include <cassert>

#include "forms/keyboard.h"
#include "looks.h"
#include "text.h"
#include "window_view.h"

namespace kvrnstep::qt {

MenuView::MenuView(WindowView& window, forms::MenuEntry& entry)
    : ControlView(window, entry, nullptr) {
  if (const forms::Control* above = entry.container()) {
    parent_ = &static_cast<MenuView&>(window.viewOf(*above));
  }
  if (entry.opensMenu()) {
    menu_ = new QMenu(parent_ == nullptr ? window.parentFor(entry) : parent_->menu());
    useFont(*menu_, captionFont());
    menu_->setAccessibleName(toQt(forms::accessibleName(entry)));
    action_ = menu_->menuAction();
  } else {
    assert(parent_ != nullptr);
    action_ = new QAction(parent_->menu());
    action_->setShortcut(
        QKeySequence::fromString(toQt(entry.row().shortcut), QKeySequence::PortableText));
    QObject::connect(action_, &QAction::triggered, action_, [this] { userPressedButton(); });
  }
  if (parent_ != nullptr) {
    parent_->menu()->addAction(action_);
  } else if (entry.visible()) {
    window.menuBar()->addAction(action_);
  }
}

void MenuView::recolor() {
  if (menu_ == nullptr) return;
  menu_->setPalette(QPalette());
  QPalette palette = menu_->palette();
  // A dark menu on a dark list would have no edge.
  if (isDark(palette)) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  menu_->setPalette(palette);
}

void MenuView::setEntry(const forms::MenuEntry& entry, const std::u16string& caption) {
  action_->setSeparator(entry.separator());
  // Some styles would write the text of a separator.
  action_->setText(entry.separator() ? QString() : toQt(caption));
  action_->setEnabled(entry.enabled());
  action_->setVisible(entry.visible());
  action_->setCheckable(entry.checked());
  action_->setChecked(entry.checked());
}

}  // namespace kvrnstep::qt
