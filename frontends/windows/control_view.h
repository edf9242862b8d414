#pragma once

#include <optional>

#include "forms/control_sync.h"
#include "handle.h"
#include "window_class.h"

namespace kvrnstep::windows {

class WindowView;

/// Draws one control with a window of the system and passes the user's actions on it on. Entries of
/// menus have no window.
class ControlView : public forms::ControlSync, public Receiver {
 public:
  ControlView(WindowView& window, forms::Control& control);

  /// The window that takes the keys, which in a combo box is a part of it.
  [[nodiscard]] virtual HWND keyTarget() const { return handle(); }
  /// The window's monitor has another density now.
  void rescale();

  void setTabStop(bool on) override;
  /// Whether the control has a use for all keys at the moment.
  [[nodiscard]] virtual bool usesKeys() const { return false; }
  /// Where on the screen a menu opens that the keyboard asks for; nothing: at the mouse.
  [[nodiscard]] virtual std::optional<POINT> menuPlace() const { return std::nullopt; }
  /// A message by which the control tells the window that holds it. Nothing: what is usual happens.
  virtual std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer);

 protected:
  /// To be called by the constructor of each kind.
  void create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0);
  void setPlace(const forms::PixelRect& place) override;
  void setEnabled(bool enabled) override;
  void setVisible(bool visible) override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

  virtual void commanded(int /*notification*/) {}
  /// The brush for the ground, colours set; null for the usual one.
  virtual HBRUSH colored(HDC /*context*/) { return nullptr; }

  void useFont(HFONT font);

  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  WindowView& window_;
};

/// The text that a window shows.
std::u16string textOf(HWND window);

/// What a button of the mouse has done.
struct MouseChange {
  forms::MouseButton button;
  bool pressed;
};
/// Nothing for messages of other kinds.
std::optional<MouseChange> mouseChange(UINT message);
/// Whether the mouse is inside of the window, by the coordinates of a message.
bool isInside(HWND window, LPARAM where);

}  // namespace kvrnstep::windows
