#pragma once

#include <optional>
#include <string_view>

#include "forms/user_actions.h"
#include "window_view.h"

/// What a user does to a window, carried out on its widgets. Each is complete when it returns;
/// false means that the widgets did not allow it.
namespace kvrnstep::qt {

bool clickControl(WindowView& view, forms::Control& control, forms::MouseButton button, bool twice,
                  std::optional<int> entry);
bool typeText(WindowView& view, forms::TextControl& box, std::u16string_view text);
bool clearText(WindowView& view, forms::TextControl& box);
bool selectText(WindowView& view, forms::TextControl& box, forms::TextSelection selection);
bool pressShortcut(WindowView& view, std::string_view keys);
bool chooseEntry(WindowView& view, forms::ComboBox& combo, int entry);
bool clickArrow(WindowView& view, forms::Spinner& spinner, bool up);
bool dragOnto(WindowView& view, forms::Control& from, forms::Control& to);
bool pickEntry(WindowView& view, forms::MenuEntry& entry);
bool moveWindow(WindowView& view, double left, double top);
bool resizeWindow(WindowView& view, double width, double height);
bool minimizeWindow(WindowView& view, bool minimized);
bool closeWindow(WindowView& view);

}  // namespace kvrnstep::qt
