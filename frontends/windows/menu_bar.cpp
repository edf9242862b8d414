#include "menu_bar.h"

#include <algorithm>
#include <string>
#include <vector>

#include "shortcut.h"
#include "text/windows/wide.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Control;
using forms::Kind;
using forms::MenuEntry;

namespace {

constexpr UINT kFirstCommand = 1000;

}  // namespace

MenuBar::MenuBar(const forms::Window& window) : window_(window) {
  if (window.hasMenuBar()) bar_.reset(::CreateMenu());
  for (const auto& control : window.controls()) {
    if (control->kind() == Kind::Menu && static_cast<const MenuEntry&>(*control).opensMenu()) {
      menus_.emplace(control.get(), ::CreatePopupMenu());
    }
  }
  makeAccelerators();
}

void MenuBar::makeAccelerators() {
  std::vector<ACCEL> keys;
  for (const auto& control : window_.controls()) {
    if (const auto shortcut = shortcutOf(control->row().shortcut)) {
      keys.push_back({static_cast<BYTE>(FVIRTKEY | (shortcut->control ? FCONTROL : 0)),
                      shortcut->key, static_cast<WORD>(commandOf(*control))});
    }
  }
  if (keys.empty()) return;
  accelerators_.reset(::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

UINT MenuBar::commandOf(const Control& entry) const {
  const auto& all = window_.controls();
  const auto found =
      std::ranges::find_if(all, [&](const auto& control) { return control.get() == &entry; });
  return kFirstCommand + static_cast<UINT>(found - all.begin());
}

MenuEntry* MenuBar::entryOf(UINT command) const {
  const std::size_t number = command - kFirstCommand;
  const auto& all = window_.controls();
  const bool known = command >= kFirstCommand && number < all.size();
  if (!known || all[number]->kind() != Kind::Menu) return nullptr;
  return static_cast<MenuEntry*>(all[number].get());
}

HMENU MenuBar::menuOf(const Control& entry) const {
  const auto found = menus_.find(&entry);
  return found == menus_.end() ? nullptr : found->second.get();
}

HMENU MenuBar::parentOf(const Control& entry) const {
  return entry.container() == nullptr ? bar_.get() : menuOf(*entry.container());
}

std::optional<MenuPlace> MenuBar::placeOf(const Control& entry) const {
  const HMENU menu = parentOf(entry);
  const UINT command = commandOf(entry);
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    MENUITEMINFOW found{};
    found.cbSize = sizeof found;
    found.fMask = MIIM_ID;
    if (::GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &found) != FALSE &&
        found.wID == command) {
      return MenuPlace{menu, i};
    }
  }
  return std::nullopt;
}

/// Behind those of the entries before it that are shown.
UINT MenuBar::positionFor(const Control& entry) const {
  UINT position = 0;
  for (const auto& other : window_.controls()) {
    if (other.get() == &entry) break;
    if (other->kind() == Kind::Menu && parentOf(*other) == parentOf(entry) && placeOf(*other)) {
      ++position;
    }
  }
  return position;
}

void MenuBar::show(const MenuEntry& entry, std::u16string caption) {
  const HMENU parent = parentOf(entry);
  const auto place = placeOf(entry);
  if (parent == nullptr) return;
  const std::string_view keys = entry.row().shortcut;
  if (!keys.empty()) caption.append(u"\t").append(keys.begin(), keys.end());
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STATE | MIIM_STRING;
  item.fState = (entry.enabled() ? MFS_ENABLED : MFS_DISABLED) |
                (entry.checked() ? MFS_CHECKED : MFS_UNCHECKED);
  item.dwTypeData = text::wide(caption.data());
  if (place && entry.visible()) {
    ::SetMenuItemInfoW(parent, static_cast<UINT>(place->position), TRUE, &item);
  } else if (place) {
    ::RemoveMenu(parent, static_cast<UINT>(place->position), MF_BYPOSITION);
  } else if (entry.visible()) {
    item.fMask |= MIIM_FTYPE | MIIM_ID | MIIM_SUBMENU;
    item.fType = entry.separator() ? MFT_SEPARATOR : MFT_STRING;
    item.wID = commandOf(entry);
    item.hSubMenu = menuOf(entry);
    ::InsertMenuItemW(parent, positionFor(entry), TRUE, &item);
  }
}

void MenuEntryView::setEntry(const MenuEntry& entry, const std::u16string& caption) {
  window().menus().show(entry, caption);
  if (entry.container() == nullptr) ::DrawMenuBar(window().handle());
}

}  // namespace kvrnstep::windows
