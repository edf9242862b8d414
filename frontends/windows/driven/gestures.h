#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "forms/user_actions.h"
#include "window_view.h"

/// What a user does to a window, carried out with the mouse and the keyboard on the system's
/// windows. Each is complete when it returns; false means that the windows did not allow it.
namespace kvrnstep::windows {

/// Deals with all that is waiting, and draws what has changed.
using Settle = std::function<void()>;

bool clickControl(WindowView& view, forms::Control& control, forms::MouseButton button, bool twice,
                  std::optional<int> entry, const Settle& settle);
bool typeText(WindowView& view, forms::TextControl& box, std::u16string_view text,
              const Settle& settle);
bool clearText(WindowView& view, forms::TextControl& box, const Settle& settle);
bool selectText(WindowView& view, forms::TextControl& box, forms::TextSelection selection,
                const Settle& settle);
bool pressShortcut(WindowView& view, std::string_view keys, const Settle& settle);
bool chooseEntry(WindowView& view, forms::ComboBox& combo, int entry, const Settle& settle);
bool clickArrow(WindowView& view, forms::Spinner& spinner, bool up, const Settle& settle);
bool dragOnto(WindowView& view, forms::Control& from, forms::Control& to, const Settle& settle);
/// Of the menu bar.
bool pickEntry(WindowView& view, const forms::MenuEntry& entry, const Settle& settle);
bool popUpIsShown(const WindowView& view, const forms::MenuEntry& menu);
/// Of the pop-up menu that is open; it has not closed yet when this returns.
bool pickFromPopUp(const WindowView& view, const forms::MenuEntry& entry);
bool moveWindow(WindowView& view, double left, double top, const Settle& settle);
bool resizeWindow(WindowView& view, double width, double height, const Settle& settle);
bool minimizeWindow(WindowView& view, bool minimized, const Settle& settle);
bool closeWindow(WindowView& view, const Settle& settle);

}  // namespace kvrnstep::windows
