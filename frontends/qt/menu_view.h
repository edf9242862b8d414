#pragma once

#include <QAction>
#include <QMenu>

#include "control_view.h"

namespace kvrnstep::qt {

/// A menu of the menu bar, a pop-up menu, or an entry of either.
class MenuView : public ControlView {
 public:
  MenuView(WindowView& window, forms::MenuEntry& entry);

  /// Of an entry, or the one that opens the menu.
  [[nodiscard]] QAction& action() const { return *action_; }
  /// Null for a plain entry.
  [[nodiscard]] QMenu* menu() const { return menu_; }
  /// The menu that has the entry; null for a menu of the menu bar or a pop-up menu.
  [[nodiscard]] MenuView* parent() const { return parent_; }

 protected:
  void setEntry(const forms::MenuEntry& entry, const std::u16string& caption) override;
  void recolor() override;

 private:
  MenuView* parent_ = nullptr;
  QMenu* menu_ = nullptr;
  QAction* action_ = nullptr;
};

}  // namespace kvrnstep::qt
