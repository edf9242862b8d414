#pragma once

#include <list>

#include "driving/driver.h"
#include "forms/view_sync.h"

namespace kvrnstep::driving {

/// Plays the user on real widgets. This class knows the steps of each gesture. Each system has its
/// own way to move the mouse, press keys and find widgets.
class WidgetDriver : public Driver {
 public:
  bool carryOut(const Gesture& gesture) final;
  std::optional<Value> shown(const forms::Control& control, std::string_view property) final;
  void opens(Opened what, const forms::Window* window, const forms::MenuEntry* menu) final;
  void closed() final;

 protected:
  /// A point in a widget, or of the screen where there is no widget.
  struct Spot {
    void* widget;
    int x;
    int y;
  };
  enum class Part : std::uint8_t { Whole, DropDown, UpArrow, DownArrow, Entry };

  /// Lets the player act in what has opened last. To be called again and again while anything is
  /// open, from any loop that runs, when all earlier input has been handled.
  void act();

  // What each system does.
  /// Begins to call act(), or ends it.
  virtual void callAct(bool on) = 0;
  /// Handles all events that are waiting, and draws what has changed.
  virtual void settle() = 0;
  /// Whether the window is on the screen with all that has changed, and takes input.
  virtual bool waits(const forms::Window& window) = 0;
  /// Gives a window the keyboard.
  virtual void bringToFront(const forms::Window& window) = 0;

  /// The middle of what can be seen of a part of a control, of an entry of its list, or of the line
  /// of a menu entry. Nothing while that is not shown. An entry of a list is scrolled to.
  virtual std::optional<Spot> spotOf(const forms::Control& control, Part part, int entry) = 0;
  /// False: the widget is hidden or disabled, or something else would get the click there.
  virtual bool clickAt(const Spot& spot, forms::MouseButton button, bool twice) = 0;
  /// Presses the left button at one place and releases it at the other, moving in between.
  virtual bool drag(const Spot& from, const Spot& to) = 0;
  /// The key that types a character, in whatever window has the keyboard. It is released when all
  /// that its press causes is shown.
  virtual void strike(std::u16string_view character) = 0;

  virtual void move(const forms::Window& window, forms::PixelPoint place) = 0;
  virtual void resize(const forms::Window& window, forms::PixelSize inner) = 0;
  /// Minimizes, restores or closes a window.
  virtual void useFrame(const forms::Window& window, Gesture::What what) = 0;

  /// The box that waits for its user, with the keyboard; null while there is none.
  virtual void* openBox() = 0;
  /// Puts the keyboard into the line of a box, and marks its text.
  virtual void enterLine(void* box) = 0;
  /// Presses Yes in a box that asks, and otherwise the box's first button.
  virtual void agree(void* box) = 0;

  /// What a widget shows of a property. What it shows of a text and how far it is scrolled is known
  /// to its sync.
  [[nodiscard]] virtual std::optional<Value> seen(const forms::Control& control,
                                                  std::string_view property) const = 0;

 private:
  /// Something that is open.
  struct Turn {
    Opened what{};
    const forms::Window* window = nullptr;
    const forms::MenuEntry* menu = nullptr;
    bool busy = false;    ///< the user is at work
    bool leaves = false;  ///< there is nothing left to do but to close it
    void* box = nullptr;  ///< the box itself, to tell it from what it asks
    int keys = 0;         ///< how many were pressed to close it
  };

  /// An entry that is to be picked from a menu of the menu bar.
  struct Pick {
    const forms::Control* entry = nullptr;
    bool done = false;
    int looks = 0;
  };

  bool isShown(const forms::MenuEntry& menu);
  bool useBox(Turn& turn, void* box);
  void answer(Turn& turn, void* box);
  bool leavePopUp(Turn& turn, const Gesture& gesture);
  bool begin(const Gesture& gesture, const forms::ViewSync& view);
  bool beginWithWindow(const Gesture& gesture, const forms::ViewSync& view);
  bool click(const forms::Control& control, Part part = Part::Whole, int entry = 0,
             forms::MouseButton button = forms::MouseButton::Left, bool twice = false);
  bool enter(const forms::Control& box, forms::TextSelection selection);
  bool type(std::u16string_view text, const forms::ViewSync& view);
  bool pickFromBar(const forms::Control& entry);
  void pickWanted();
  void place(const Gesture& gesture, const forms::ViewSync& view);

  std::list<Turn> turns_;  ///< the innermost last
  Pick* pick_ = nullptr;   ///< null as soon as its entry has been clicked
};

}  // namespace kvrnstep::driving
