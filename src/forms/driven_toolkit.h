#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/toolkit.h"

namespace kvrnstep::forms {

/// Plays the user of a driven toolkit.
class Pilot {
 public:
  virtual ~Pilot() = default;
  /// A window or an open pop-up menu waits for its user: do one thing. Called again and again as
  /// long as it stays open, each time when all that the last action led to is done and drawn.
  virtual void act() = 0;
  /// The answer to the text-input box or file dialog that is open; nothing stands for Cancel. A
  /// file is named as a user would, with its folder or without.
  virtual std::optional<std::u16string> answer() = 0;
};

/// A front end that a script can use as a person would. Each gesture is carried out on the real
/// thing: where there are widgets it is a mouse or key event on the widget. The core has already
/// checked that the control is in reach; a gesture returns false where the front end finds that
/// it is impossible all the same.
class DrivenToolkit : public Toolkit {
 public:
  virtual void setPilot(Pilot& pilot) = 0;

  /// A click with this button. `entry` is an entry of a list box; nothing is the control itself.
  virtual bool click(Control& control, MouseButton button, std::optional<int> entry) = 0;
  virtual bool doubleClick(Control& control, std::optional<int> entry) = 0;
  /// Puts the caret at the end of the box's text and types the characters one by one.
  virtual bool type(TextControl& box, std::u16string_view text) = 0;
  /// Marks all of the box's text and presses Delete.
  virtual bool clear(TextControl& box) = 0;
  virtual bool select(TextControl& box, TextSelection selection) = 0;
  /// Presses a shortcut of the window: "Ctrl+S". False: the window has no such shortcut.
  virtual bool press(Window& window, std::string_view keys) = 0;
  /// Drops the list of a combo box down and picks an entry.
  virtual bool choose(ComboBox& combo, int entry) = 0;
  virtual bool spin(Spinner& spinner, bool up) = 0;
  virtual bool drag(Control& from, Control& to) = 0;
  /// Picks an entry of the menu bar or of the pop-up menu that is open.
  virtual bool pick(MenuEntry& entry) = 0;
  /// Closes the pop-up menu that is open.
  virtual bool escape() = 0;
  virtual bool move(Window& window, double left, double top) = 0;
  virtual bool resize(Window& window, double width, double height) = 0;
  virtual bool minimize(Window& window, bool minimized) = 0;
  virtual bool close(Window& window) = 0;

  /// What the front end really shows of a property, where it can tell.
  virtual std::optional<PropertyValue> shown(const Control& control, Property property) = 0;
};

}  // namespace kvrnstep::forms
