#pragma once

#include <QAction>
#include <QMenu>

#include "control_view.h"

namespace kvrnstep::qt {

/// A menu of the menu bar, a pop-up menu, or an entry of either.
class MenuView : public ControlView {
 public:
  /// `parent` is the menu that the entry stands in; null for a menu of the menu bar or a pop-up
  /// menu.
  MenuView(WindowView& window, forms::MenuEntry& entry, MenuView* parent);

  /// Of an entry, or the one that opens the menu.
  [[nodiscard]] QAction& action() const { return *action_; }
  /// Null for a plain entry.
  [[nodiscard]] QMenu* menu() const { return menu_; }
  /// The menu that the entry stands in, or null.
  [[nodiscard]] MenuView* parent() const { return parent_; }

  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const override;

 protected:
  void apply(const Changes& changes) override;

 private:
  void triggered();
  [[nodiscard]] forms::MenuEntry& entry() const {
    return static_cast<forms::MenuEntry&>(control());
  }

  MenuView* parent_;
  QMenu* menu_ = nullptr;
  QAction* action_ = nullptr;
};

}  // namespace kvrnstep::qt
