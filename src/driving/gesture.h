#pragma once

#include <cassert>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/window.h"

namespace kvrnstep::driving {

/// What a user does to a window: what, to which control, with what.
struct Gesture {
  enum class What : std::uint8_t {
    Click,
    DoubleClick,
    RightClick,
    Type,    ///< puts the caret at the end of the box's text and types the characters
    Clear,   ///< marks all of the box's text and presses Delete
    Select,  ///< marks part of the box's text
    Press,   ///< the shortcut of a menu entry
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
  std::optional<int> entry{};         ///< of a list; nothing: the list itself
  std::u16string text{};              ///< to be typed
  std::vector<double> numbers{};      ///< start and length of the marked part; left and top edge,
                                      ///< or width and height, in twips

  template <class T>
  [[nodiscard]] T& on() const {
    assert(control != nullptr);
    return static_cast<T&>(*control);
  }
  [[nodiscard]] forms::TextSelection selection() const {
    return {static_cast<std::size_t>(numbers[0]), static_cast<std::size_t>(numbers[1])};
  }
};

}  // namespace kvrnstep::driving
