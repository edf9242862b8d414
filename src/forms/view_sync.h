#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/control_sync.h"
#include "forms/keyboard.h"

namespace kvrnstep::forms {

/// The place at which a window is shown, because its stored place may be off the screens. It stays
/// there if all of it can be seen. Otherwise it moves onto the screen that it is on or next to, no
/// further than needed. If it is larger than that screen its right and its bottom are cut off,
/// because the title bar and the menu bar are at the left and the top.
/// @param wanted the outside of the window; all are in the same unit
/// @param screens the room for windows on each screen; empty if it is not known
Rect placeOnScreen(const Rect& wanted, std::span<const Rect> screens);

/// Keeps what a front end shows of a window up to date. It remembers what has changed, shows it at
/// the end of the user's action, in the one order that works, and converts sizes from twips to
/// pixels and back. A front end implements the setters and reports what the user does.
class ViewSync {
 public:
  explicit ViewSync(Window& window) : window_(window) {}
  virtual ~ViewSync() = default;
  ViewSync(const ViewSync&) = delete;
  ViewSync& operator=(const ViewSync&) = delete;

  [[nodiscard]] Window& window() const { return window_; }
  [[nodiscard]] bool open() const { return open_; }
  [[nodiscard]] int pixels(double twips) const;
  /// The inner size of a window that is so large outside, in twips.
  [[nodiscard]] PixelSize innerSize(double width, double height) const;
  /// A place on the desktop that is given in twips.
  [[nodiscard]] PixelPoint onDesktop(double left, double top) const;
  [[nodiscard]] ControlSync& syncOf(const Control& control) const { return *views_.at(&control); }
  void markKind(Kind kind, Property property);
  /// Where a pop-up menu opens if a key has asked for it; nothing: at the mouse.
  [[nodiscard]] std::optional<PixelPoint> menuPlace() const { return menuPlace_; }

  // What the window calls.
  /// A property of a control or of the window has changed. It is shown by the next update().
  void changed(Control& control, Property property);
  void changed(Property property);
  void update();
  /// The control has the keyboard after the next update().
  void setFocus(Control& control) { focus_ = &control; }
  /// The first entry of a list that equals a text but for letter case, as the system's lists
  /// compare; −1 for none. Nothing where they do not search.
  virtual std::optional<int> findEntry(const ListBox& /*list*/, const std::u16string& /*text*/) {
    return std::nullopt;
  }
  void unloaded();

 protected:
  // What a front end implements.
  virtual std::unique_ptr<ControlSync> makeView(Control& control) = 0;
  virtual void setTitle(const std::u16string& caption) = 0;
  /// The size of the area between borders and below the menu bar, where the controls are.
  virtual void setInnerSize(PixelSize size) = 0;
  virtual void setPosition(PixelPoint position) = 0;
  /// Tab leads through those of the controls that are tab stops, in this order.
  virtual void setTabOrder(const std::vector<Control*>& order) = 0;
  /// The keyboard goes to a control, or stays where it is.
  virtual void giveKeyboard(const Control* control) = 0;
  virtual void vanish() = 0;
  /// The room for windows on each screen, in the desktop's pixels.
  [[nodiscard]] virtual std::vector<Rect> screens() const = 0;
  /// Of the window with its frame, in pixels of the desktop.
  [[nodiscard]] virtual PixelSize frameSize() const;
  /// How many pixels of the desktop make 1/96 inch.
  [[nodiscard]] virtual double desktopScale() const { return 1; }
  /// Changes are about to be shown.
  virtual void updateBegins() {}

  // What a front end calls.
  /// Makes the views of all controls, containers first, and joins buddies.
  void makeViews();
  void destroyViews() { views_.clear(); }
  /// Marks everything as changed and shows it, with so many pixels for 1/96 inch.
  void showAll(double scale);
  /// The monitor has another density, which the next update() shows. The window stays where the
  /// desktop has moved it, unless it is being placed: then its new size may need another place.
  void rescaledTo(double scale);
  /// Stops showing anything, because the window has been unloaded, or something else has destroyed
  /// it.
  void close() { open_ = false; }
  [[nodiscard]] PixelSize innerSize() const {
    return innerSize(window_.place().width, window_.place().height);
  }
  /// The least inner size that a user can choose.
  [[nodiscard]] PixelSize smallestInnerSize() const {
    return innerSize(window_.design().minimumWidth, window_.design().minimumHeight);
  }

  /// A key was pressed in a control, as for userPressedCommandKey(). Nothing is a key of another
  /// kind.
  bool pressed(const ControlSync& focus, std::optional<CommandKey> key);
  /// The window has this place now. `byUser` is false if the desktop has moved it on its own.
  void movedTo(PixelPoint position, bool byUser);
  void resizedTo(PixelSize inner);
  void minimizedTo(bool minimized);
  /// The desktop has other colours.
  void recolored();

 private:
  void applyAll();
  void applyWindow();
  void applyPosition();
  void arrange();

  Window& window_;
  std::unordered_map<const Control*, std::unique_ptr<ControlSync>> views_;
  Changes changes_;
  PixelPoint position_;  ///< of the frame, as it was last shown or told
  Control* focus_ = nullptr;
  std::optional<PixelPoint> menuPlace_;
  double scale_ = 1;
  bool rescaled_ = false;  ///< since the changes that are being shown began to be
  bool opening_ = true;    ///< the order of Tab is not known yet
  bool arrangementChanged_ = true;
  bool updating_ = false;
  bool open_ = true;
};

/// Has the window tell the view of its changes, and keeps the view among the open ones, for as long
/// as this lives.
template <class View>
class Attached {
 public:
  Attached(View& view, std::vector<View*>& open) : window_(view.window()), open_(open) {
    open_.push_back(&view);
    window_.attach(&view);
  }
  ~Attached() {
    window_.attach(nullptr);
    open_.pop_back();
  }
  Attached(const Attached&) = delete;
  Attached& operator=(const Attached&) = delete;

 private:
  Window& window_;
  std::vector<View*>& open_;
};

/// A class of views, the kinds that it draws, and the class of their controls.
template <class View, class Of, Kind... kinds>
struct Draws {
  static constexpr std::size_t kCount = sizeof...(kinds);

  template <class WindowView>
  static void make(std::unique_ptr<ControlSync>& made, WindowView& window, Control& control) {
    const bool itsKind = ((control.kind() == kinds) || ...);
    if (itsKind) made = std::make_unique<View>(window, static_cast<Of&>(control));
  }
};

/// Makes the view of a control, of the class that draws its kind.
template <class... Views, class WindowView>
std::unique_ptr<ControlSync> makeViewOf(WindowView& window, Control& control) {
  static_assert((Views::kCount + ...) == kKinds);
  std::unique_ptr<ControlSync> made;
  (Views::make(made, window, control), ...);
  return made;
}

}  // namespace kvrnstep::forms
