#include "menu_bar.h"

#include <algorithm>
#include <string>

#include "shortcut.h"
#include "text/windows/wide.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Kind;
using forms::MenuEntry;
using forms::Property;

namespace {

constexpr UINT kFirstCommand = 1000;

/// The caption with the shortcut behind it, as menus show it.
std::u16string labelOf(const forms::Control& entry, const std::u16string& caption) {
  const std::string_view keys = entry.row().shortcut;
  std::u16string label = caption;
  if (!keys.empty()) label.append(u"\t").append(keys.begin(), keys.end());
  return label;
}

UINT stateOf(const forms::DrawnEntry& entry) {
  return (entry.enabled ? MFS_ENABLED : MFS_DISABLED) |
         (entry.checked ? MFS_CHECKED : MFS_UNCHECKED);
}

}  // namespace

MenuBar::MenuBar(forms::Window& window) {
  for (const auto& control : window.controls()) {
    if (control->kind() != Kind::Menu) continue;
    const auto command = kFirstCommand + static_cast<UINT>(items_.size());
    items_.push_back({static_cast<MenuEntry*>(control.get()), command, nullptr});
  }
  if (items_.empty()) return;
  if (window.hasMenuBar()) bar_.reset(::CreateMenu());
  for (Item& item : items_) add(item);
  makeAccelerators();
}

void MenuBar::add(Item& item) {
  if (item.entry->opensMenu()) {
    item.menu.reset(::CreatePopupMenu());
    item.opens = item.menu.get();
  }
  if (item.entry->visible()) insert(item, forms::drawnEntry(*item.entry));
}

HMENU MenuBar::parentOf(const forms::Control& entry) const {
  return entry.container() == nullptr ? bar_.get() : menuOf(*entry.container());
}

void MenuBar::insert(Item& item, const forms::DrawnEntry& drawn) {
  const HMENU parent = parentOf(*item.entry);
  if (parent == nullptr) return;
  std::u16string label = labelOf(*item.entry, drawn.caption);
  MENUITEMINFOW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_STRING;
  wanted.fType = drawn.separator ? MFT_SEPARATOR : MFT_STRING;
  wanted.fState = stateOf(drawn);
  wanted.wID = item.command;
  wanted.dwTypeData = text::wide(label.data());
  if (item.opens != nullptr) {
    wanted.fMask |= MIIM_SUBMENU;
    // The menu above frees it from now on.
    wanted.hSubMenu = item.menu.release();
  }
  // Entries that are not shown leave no gap.
  UINT position = 0;
  for (const Item& other : items_) {
    if (&other == &item) break;
    if (other.entry->container() == item.entry->container() && placeOf(*other.entry)) ++position;
  }
  ::InsertMenuItemW(parent, position, TRUE, &wanted);
}

void MenuBar::makeAccelerators() {
  std::vector<ACCEL> keys;
  for (const Item& item : items_) {
    if (const auto shortcut = shortcutOf(item.entry->row().shortcut)) {
      keys.push_back({static_cast<BYTE>(FVIRTKEY | (shortcut->control ? FCONTROL : 0)),
                      shortcut->key, static_cast<WORD>(item.command)});
    }
  }
  if (keys.empty()) return;
  accelerators_.reset(::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

const MenuBar::Item* MenuBar::itemOf(const forms::Control& entry) const {
  const auto found = std::ranges::find(items_, &entry, &Item::entry);
  return found == items_.end() ? nullptr : &*found;
}

MenuBar::Item* MenuBar::itemOf(const forms::Control& entry) {
  const auto found = std::ranges::find(items_, &entry, &Item::entry);
  return found == items_.end() ? nullptr : &*found;
}

HMENU MenuBar::menuOf(const forms::Control& entry) const {
  const Item* item = itemOf(entry);
  return item == nullptr ? nullptr : item->opens;
}

std::optional<MenuPlace> MenuBar::placeOf(const forms::Control& entry) const {
  const Item* item = itemOf(entry);
  const HMENU menu = parentOf(entry);
  if (item == nullptr || menu == nullptr) return std::nullopt;
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    MENUITEMINFOW found{};
    found.cbSize = sizeof found;
    found.fMask = MIIM_ID;
    if (::GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &found) != FALSE &&
        found.wID == item->command) {
      return MenuPlace{menu, i};
    }
  }
  return std::nullopt;
}

MenuEntry* MenuBar::entryOf(UINT command) const {
  const auto found = std::ranges::find(items_, command, &Item::command);
  return found == items_.end() ? nullptr : found->entry;
}

bool MenuBar::show(const forms::Control& entry, const forms::DrawnEntry& drawn) {
  auto* item = itemOf(entry);
  if (item == nullptr) return false;
  auto place = placeOf(entry);
  if (!drawn.visible) {
    if (!place) return false;
    ::RemoveMenu(place->menu, static_cast<UINT>(place->position), MF_BYPOSITION);
    // Nothing above frees it any more.
    item->menu.reset(item->opens);
    return place->menu == bar_.get();
  }
  if (!place) {
    insert(*item, drawn);
    return entry.container() == nullptr;
  }
  std::u16string label = labelOf(entry, drawn.caption);
  MENUITEMINFOW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.fMask = MIIM_STATE | MIIM_STRING;
  wanted.fState = stateOf(drawn);
  wanted.dwTypeData = text::wide(label.data());
  ::SetMenuItemInfoW(place->menu, static_cast<UINT>(place->position), TRUE, &wanted);
  return place->menu == bar_.get();
}

void MenuEntryView::setEntry(const forms::DrawnEntry& entry) {
  if (window().menus().show(control(), entry)) ::DrawMenuBar(window().handle());
}

}  // namespace kvrnstep::windows
