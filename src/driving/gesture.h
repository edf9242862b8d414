#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "forms/window.h"

namespace kvrnstep::driving {

/// What a user does to a window: what, to which control, with what.
struct Gesture {
  enum class What : std::uint8_t {
    Click,
    DoubleClick,
    RightClick,
    Type,    ///< puts the caret at the end of the box's text, types the characters one by one
    Clear,   ///< marks all of the box's text and presses Delete
    Select,  ///< marks part of the box's text
    Press,   ///< a shortcut of the window: "Ctrl+S"
    Choose,  ///< drops the list of a combo box down and picks an entry
    SpinUp,
    SpinDown,
    Drag,
    Pick,    ///< an entry of the menu bar, or of the pop-up menu that is open
    Escape,  ///< closes the pop-up menu that is open
    Move,
    Resize,
    Minimize,
    Restore,
    Close,
  };

  What what;
  forms::Window& window;
  forms::Control* control = nullptr;  ///< null: what is done is done to the window itself
  forms::Control* target = nullptr;   ///< where a control is dropped
  std::optional<int> entry{};         ///< of a list; nothing is the list itself
  std::u16string text{};              ///< that is typed, or the shortcut
  double first = 0;                   ///< left edge or width of the window, in twips; start of the
                                      ///< marked part
  double second = 0;                  ///< top edge or height; length of the marked part

  template <class T>
  [[nodiscard]] T& on() const {
    return static_cast<T&>(*control);
  }
  [[nodiscard]] forms::TextSelection selection() const {
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(second)};
  }
};

}  // namespace kvrnstep::driving
