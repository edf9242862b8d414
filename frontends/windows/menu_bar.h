#pragma once

#include <optional>
#include <vector>

#include "control_view.h"
#include "forms/window.h"
#include "handle.h"

namespace kvrnstep::windows {

/// Where a menu entry stands: in which menu, and at which place of it.
struct MenuPlace {
  HMENU menu = nullptr;
  int position = -1;
};

/// The menus of a window: its menu bar, the menus in it, and pop-up menus.
class MenuBar {
 public:
  explicit MenuBar(forms::Window& window);

  /// Null in a window without menus.
  [[nodiscard]] HMENU bar() const { return bar_.get(); }
  [[nodiscard]] HACCEL accelerators() const { return accelerators_.get(); }
  /// The menu that an entry opens; null for a plain entry.
  [[nodiscard]] HMENU menuOf(const forms::Control& entry) const;
  /// Nothing for menus that pop up, and for what is not shown.
  [[nodiscard]] std::optional<MenuPlace> placeOf(const forms::Control& entry) const;
  /// The entry of a command; null for other numbers.
  [[nodiscard]] forms::MenuEntry* entryOf(UINT command) const;

  /// Shows an entry. True: the bar itself has changed.
  bool show(const forms::Control& entry, const forms::DrawnEntry& drawn);

 private:
  struct Item {
    forms::MenuEntry* entry;
    UINT command;
    Menu menu;  ///< of its entries, until a menu above owns it
    HMENU opens = nullptr;
  };

  [[nodiscard]] const Item* itemOf(const forms::Control& entry) const;
  [[nodiscard]] Item* itemOf(const forms::Control& entry);
  [[nodiscard]] HMENU parentOf(const forms::Control& entry) const;
  void add(Item& item);
  void insert(Item& item, const forms::DrawnEntry& drawn);
  void makeAccelerators();

  Menu bar_;
  std::vector<Item> items_;
  Accelerators accelerators_;
};

/// Shows a menu entry.
class MenuEntryView : public ControlView {
 public:
  MenuEntryView(WindowView& window, forms::MenuEntry& entry) : ControlView(window, entry) {}

  void announce(AccessibleNames& /*names*/) const override {}

 protected:
  void setEntry(const forms::DrawnEntry& entry) override;
};

}  // namespace kvrnstep::windows
