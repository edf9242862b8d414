#pragma once

#include <string>

#include "forms/window.h"

/// What a user can do to a window. A front end calls one of these functions for each action of the
/// user and does nothing else. Actions on a control that is disabled or out of reach are ignored.
/// At the end of an action all that it has changed is shown.
namespace kvrnstep::forms {

/// The left button, or the keyboard in its place: presses a button, toggles a check box, selects
/// an option button, picks a menu entry.
void userClicked(Control& control);
/// A button of the mouse was pressed and released over the control. The left one also clicks a
/// label or an image; of other controls the front end reports what the click does.
void userReleasedMouse(Control& control, MouseButton button);
/// An entry of a list box was clicked; −1 is the empty space under the entries.
void userClickedEntry(ListBox& list, int index);
/// … or double-clicked.
void userDoubleClickedEntry(ListBox& list, int index);
/// The list was scrolled, and this entry is the first visible one.
void userScrolled(ListBox& list, int topIndex);
void userDropped(const Control& source, Control& target);
void userChose(ComboBox& combo, int index);
void userSpun(Spinner& spinner, bool up);

/// How a user brings the keyboard to a box.
enum class Way : std::uint8_t { Tab, Click };
/// The user has brought the keyboard to a box. Tab marks the text of a box of one line, so that
/// typing replaces it, and goes to the beginning of several lines. A click marks the text of those
/// boxes whose row says so. False: the front end decides where the caret is.
bool userEntered(TextControl& box, Way way);
/// A key was pressed while the control had the keyboard, whatever the key does. A front end leaves
/// out the repeats of a key that is held.
void userPressedKey(Control& focus, KeyCode key);
/// A key was released in the window, whichever control has the keyboard by then. It counts in the
/// box where it was pressed, because fast typists press Tab before they let go of the last digit. A
/// key that was pressed in another window, to close a message for example, counts nowhere.
/// False: it did not count.
bool userReleasedKey(Window& window, KeyCode key);
/// The window has lost the keyboard to another window or to a menu. The keys that are held will be
/// released there.
void userLeft(Window& window);
/// A key types a character. False: the character must not reach the box.
[[nodiscard]] bool userTypes(TextControl& box, char16_t character);
/// The user has changed the text of a box to `text`; the caret is at `selection`.
void userEdited(TextControl& box, std::u16string text, TextSelection selection);
/// The caret or the marked part has moved.
void userSelected(TextControl& box, TextSelection selection);

/// The window was moved, sized (outside, twips), minimized or restored.
void userMoved(Window& window, double left, double top);
void userResized(Window& window, double width, double height);
void userMinimized(Window& window, bool minimized);
/// The window was closed, by its close box for example.
void userClosed(Window& window);

}  // namespace kvrnstep::forms
