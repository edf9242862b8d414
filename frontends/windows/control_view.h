#pragma once

#include <windows.h>
// After the other one.
#include <commctrl.h>

#include <optional>

#include "forms/control_sync.h"
#include "handle.h"

namespace kvrnstep::windows {

class AccessibleNames;
class WindowView;

/// Draws one control with a window of the system and passes the user's actions on it on.
class ControlView : public forms::ControlSync {
 public:
  ControlView(WindowView& window, forms::Control& control);
  ~ControlView() override;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  /// Null for entries of menus.
  [[nodiscard]] HWND handle() const { return handle_; }
  /// The window that takes the keys; the one above, but for boxes that lie in another one.
  [[nodiscard]] virtual HWND keyTarget() const { return handle_; }
  /// The window's monitor has another density now.
  void rescale();

  void setTabStop(bool on) override;
  /// Whether the control has a use for all keys at the moment.
  [[nodiscard]] virtual bool usesKeys() const { return false; }
  /// Where on the screen a menu opens that the keyboard asks for; nothing: at the mouse.
  [[nodiscard]] virtual std::optional<POINT> menuPlace() const { return std::nullopt; }

  /// Says for screen readers what the system cannot know.
  virtual void announce(AccessibleNames& names) const;

  // What the control tells the window that holds it.
  virtual void commanded(int /*notification*/) {}
  virtual LRESULT notified(const NMHDR& /*notification*/) { return 0; }
  /// The brush for the ground, colours set; null for the usual one.
  virtual HBRUSH colored(HDC /*context*/) { return nullptr; }
  virtual void drawn(const DRAWITEMSTRUCT& /*request*/) {}
  /// What was put off until the control has dealt with its own message.
  virtual void afterwards() {}

 protected:
  /// To be called by the constructor of each kind.
  void create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0,
              void* parameter = nullptr);
  void setPlace(const forms::PixelRect& place) override;
  void setEnabled(bool enabled) override;
  void setVisible(bool visible) override;
  /// A message of the window; whoever overrides it passes the rest on.
  virtual LRESULT received(UINT message, WPARAM wide, LPARAM longer);

  void useFont(HFONT font);

  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wide, LPARAM longer,
                                    UINT_PTR id, DWORD_PTR view);

  WindowView& window_;
  HWND handle_ = nullptr;
};

/// The text that a window shows.
std::u16string textOf(HWND window);
/// … and puts another one there, if it is another one.
void showText(HWND window, const std::u16string& text);

/// The button that a message of the mouse tells of; nothing for other messages.
std::optional<forms::MouseButton> pressedButton(UINT message);
std::optional<forms::MouseButton> releasedButton(UINT message);
/// Whether the mouse is inside of the window, by the coordinates of a message.
bool isInside(HWND window, LPARAM where);

}  // namespace kvrnstep::windows
