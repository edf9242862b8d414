#pragma once

#include <optional>
#include <unordered_map>

#include "control_view.h"
#include "forms/window.h"
#include "handle.h"

namespace kvrnstep::windows {

/// Which menu shows an entry, and as which one from the top.
struct MenuPlace {
  HMENU menu = nullptr;
  int position = -1;
};

/// The menus of a window: its menu bar, the menus in it, and pop-up menus.
class MenuBar {
 public:
  explicit MenuBar(const forms::Window& window);

  /// Null in a window without menus.
  [[nodiscard]] HMENU bar() const { return bar_.get(); }
  [[nodiscard]] HACCEL accelerators() const { return accelerators_.get(); }
  /// The menu that an entry opens; null for a plain entry.
  [[nodiscard]] HMENU menuOf(const forms::Control& entry) const;
  /// Nothing for a pop-up menu and for an entry that is not shown.
  [[nodiscard]] std::optional<MenuPlace> placeOf(const forms::Control& entry) const;
  /// The entry of a command; null for other numbers.
  [[nodiscard]] forms::MenuEntry* entryOf(UINT command) const;

  void show(const forms::MenuEntry& entry, std::u16string caption);

 private:
  [[nodiscard]] UINT commandOf(const forms::Control& entry) const;
  [[nodiscard]] HMENU parentOf(const forms::Control& entry) const;
  [[nodiscard]] UINT positionFor(const forms::Control& entry) const;
  void makeAccelerators();

  const forms::Window& window_;
  // The system frees the bar and the menus in it with the window; to free them again fails and does
  // no harm.
  Menu bar_;
  std::unordered_map<const forms::Control*, Menu> menus_;  ///< by the entries that open them
  Accelerators accelerators_;
};

class MenuEntryView : public ControlView {
 public:
  MenuEntryView(WindowView& window, forms::MenuEntry& entry) : ControlView(window, entry) {}

 protected:
  void setEntry(const forms::MenuEntry& entry, const std::u16string& caption) override;
};

}  // namespace kvrnstep::windows
