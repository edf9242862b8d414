#pragma once

#include <cstdint>
#include <string>

#include "forms/window.h"

/// A window without a mouse: what its keys do, and what a screen reader says of its controls.
/// Deciding is done here; a front end maps its keys to these, draws and passes on.
namespace kvrnstep::forms {

/// A key that does something else than type or move a caret.
enum class CommandKey : std::uint8_t {
  Enter,
  Escape,
  Space,
  Up,
  Down,
  Ask,   ///< F4, or Alt with an arrow: asks for a value
  Menu,  ///< the menu key, or Shift+F10
};

/// A key was pressed while the control had the keyboard. True: that was all there is to it, and the
/// widget must not see the key. Ends with View::update(), like every action of the user.
///
/// - Escape clicks the button that the window's design names for it.
/// - Enter in a box of one line clicks the button that the design names for Enter; in a list it is
///   a double click on the selected entry.
/// - Space and Enter activate a label or an image.
/// - Up and Down in a list without a selected entry select the first one in view.
/// - Up and Down in the box of a spinner turn the spinner; Ask does what a right click on it does.
/// - Menu opens the pop-up menu of a list.
bool userPressedCommandKey(Control& focus, CommandKey key);

/// A click without a mouse: on a label that can be dragged it drops the label where the window
/// takes drops, and the keyboard goes there; on anything else it is a click of the left button.
void userActivated(Control& control);

/// A label or an image that Tab leads to: one that can be clicked or dragged.
[[nodiscard]] bool takesKeyboard(const Control& control);

/// Whether Tab leads to the control as long as it is reachable; of a group of option buttons, to
/// the selected one.
[[nodiscard]] bool takesFocus(const Control& control);

/// A label that is clicked as a link is.
[[nodiscard]] bool isLink(const Control& control);

/// The letter, in upper case, that reaches the control together with Alt; 0 where it has none. The
/// menu bar comes first and each letter has one owner: where a menu and a button want the same one
/// it opens the menu.
[[nodiscard]] char16_t mnemonicOf(const Control& control);

/// The caption with "&" before the letter that mnemonicOf() tells, and nowhere else.
[[nodiscard]] std::u16string drawnCaption(const Control& control);

/// What a screen reader calls the control: the name that its row gives it, the label that belongs
/// to it, or its caption. The arrows of a spinner have names of their own.
[[nodiscard]] std::u16string accessibleName(const Control& control);
[[nodiscard]] std::u16string accessibleArrowName(const Spinner& spinner, bool up);

}  // namespace kvrnstep::forms
