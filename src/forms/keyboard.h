#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/window.h"

/// A window without a mouse: what its keys do, and what a screen reader says of its controls. A
/// front end maps its keys to these.
namespace kvrnstep::forms {

/// A key that neither types nor moves a caret.
enum class CommandKey : std::uint8_t {
  Enter,
  Escape,
  Space,
  Up,
  Down,
  Ask,   ///< F4, or Alt with an arrow: asks for a value
  Menu,  ///< the menu key, or Shift+F10
};

/// The command of a key in a front end's table of keys and commands, if it is one.
template <class Table, class Key>
std::optional<CommandKey> commandIn(const Table& table, Key key) {
  for (const auto& [known, command] : table) {
    if (known == key) return command;
  }
  return std::nullopt;
}

/// A key was pressed while the control had the keyboard. True: the key has been handled, and the
/// widget must not get it.
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

/// A letter, in upper case, was pressed together with Alt. It activates the label or image whose
/// mnemonic it is. False: there is none; toolkits know the mnemonics of other controls themselves.
bool userPressedLetter(const Window& window, char16_t letter);

/// A double click on a label that can be dragged activates it.
void userDoubleClicked(Control& label);

/// A label or an image that Tab leads to: one that can be clicked or dragged.
[[nodiscard]] bool takesKeyboard(const Control& control);

/// Whether Tab leads to the control as long as it is reachable; of a group of option buttons, to
/// the selected one.
[[nodiscard]] bool takesFocus(const Control& control);

/// A label that works as a link.
[[nodiscard]] bool isLink(const Control& control);

/// The visible controls of a window in the order in which Tab leads through them: those first whose
/// turn is declared, then the others as the eye reads, each label right before what it leads to.
std::vector<Control*> tabOrder(const Window& window);

/// Where the keyboard is when the window opens: the first control in that order that the user can
/// set something with, of a group of option buttons the selected one. Null where there is none.
Control* firstFocus(const std::vector<Control*>& order);

/// The letter, in upper case, that reaches the control together with Alt; 0 where it has none. Each
/// letter belongs to one control: if a menu and a button want the same letter, it opens the menu.
[[nodiscard]] char16_t mnemonicOf(const Control& control);

/// The caption with "&" before the letter that mnemonicOf() tells, and nowhere else.
[[nodiscard]] std::u16string drawnCaption(const Control& control);

/// What a screen reader calls the control: the name that its row gives it, the label that belongs
/// to it, or its caption. The arrows of a spinner have names of their own.
[[nodiscard]] std::u16string accessibleName(const Control& control);
[[nodiscard]] std::u16string accessibleArrowName(const Spinner& spinner, bool up);

}  // namespace kvrnstep::forms
