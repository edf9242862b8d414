#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "forms/control_sync.h"
#include "forms/window.h"

namespace kvrnstep::forms {

/// In the pixels of the desktop.
struct PixelPoint {
  int left = 0;
  int top = 0;

  bool operator==(const PixelPoint&) const = default;
};

/// Keeps what a front end shows of a window in line with it: knows what has changed, shows it when
/// the user's action has been dealt with, in the one order in which that works, and turns sizes
/// from twips into pixels and back. A front end implements the setters and tells of the user.
class ViewSync : public View {
 public:
  explicit ViewSync(Window& window);
  ViewSync(const ViewSync&) = delete;
  ViewSync& operator=(const ViewSync&) = delete;

  [[nodiscard]] Window& window() const { return window_; }
  [[nodiscard]] bool open() const { return open_; }
  [[nodiscard]] PixelRect pixelPlace(const Control& control) const;
  /// Marks a property of all controls of a kind.
  void markKind(Kind kind, Property property);

  void changed(Control& control, Property property) final;
  void changed(Property property) final;
  void update() final;
  void setFocus(Control& control) final;
  void unloaded() final;

 protected:
  // What a front end implements.
  virtual std::unique_ptr<ControlSync> makeView(Control& control) = 0;
  virtual void setTitle(const std::u16string& caption) = 0;
  /// What borders and menu bar leave for the controls.
  virtual void setInnerSize(PixelSize size) = 0;
  virtual void setPosition(PixelPoint position) = 0;
  /// Tab leads through the controls in this order, as far as they are tab stops.
  virtual void setTabOrder(const std::vector<Control*>& order) = 0;
  /// The keyboard goes to a control, or stays where it is.
  virtual void giveKeyboard(const Control* control) = 0;
  virtual void vanish() = 0;
  /// What the desktop has for windows on each screen, in its pixels.
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
  [[nodiscard]] ControlSync& syncOf(const Control& control) const { return *views_.at(&control); }
  /// Marks everything as changed and shows it, so many pixels to 1/96 inch.
  void showAll(double scale);
  /// The monitor has another density. The window keeps the corner that the desktop gives it.
  void rescaledTo(double scale);
  /// There is nothing left to show: the window has been unloaded, or somebody else has destroyed
  /// it.
  void close() { open_ = false; }
  [[nodiscard]] PixelSize innerSize() const;
  /// The least that a user can make of the inner size.
  [[nodiscard]] PixelSize smallestInnerSize() const;

  /// The window is there now. `byUser`: and not where the desktop has put it on its own.
  void movedTo(PixelPoint position, bool byUser);
  void resizedTo(PixelSize inner);
  void minimizedTo(bool minimized);
  /// The desktop has other colours.
  void recolored();

 private:
  [[nodiscard]] int pixels(double units) const;
  void markAllControls();
  void applyWindow();
  void applyPosition();
  void arrange();

  Window& window_;
  std::unordered_map<const Control*, std::unique_ptr<ControlSync>> views_;
  Changes changes_;
  PixelPoint position_;  ///< of the frame, as it was last shown or told
  Control* focus_;
  double scale_ = 1;
  bool arrangementChanged_ = true;
  bool updating_ = false;
  bool open_ = true;
};

}  // namespace kvrnstep::forms
