#pragma once

#include <optional>

#include "forms/control_sync.h"
#include "handle.h"
#include "window_class.h"

namespace kvrnstep::windows {

class WindowView;

/// Shows one control as a window of the system's class and passes on what the user does there. The
/// views of menu entries have no window.
class ControlView : public forms::ControlSync, public Receiver {
 public:
  ControlView(WindowView& window, forms::Control& control);

  /// The window that gets the keyboard; in a combo box that is the edit control inside it.
  [[nodiscard]] virtual HWND keyTarget() const { return handle(); }
  /// The window's monitor has another density now.
  void rescale();

  void setTabStop(bool on) override;
  /// Handles a message that the control sends to its parent; without a value the parent does what
  /// is usual.
  virtual std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer);

 protected:
  /// To be called by the constructor of each kind.
  void create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0);
  void setPlace(const forms::PixelRect& place) override;
  void setEnabled(bool enabled) override;
  void setVisible(bool visible) override;
  void setCaption(const std::u16string& caption) override;
  void fitCaption() override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

  virtual void commanded(int /*notification*/) {}
  /// Sets the colours and returns the brush for the background; null for the usual one.
  virtual HBRUSH colored(HDC /*context*/) { return nullptr; }

  /// The control has this font until it gets another one.
  void useFont(Font font);
  [[nodiscard]] HFONT font() const { return font_.get(); }

  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  void useFont(HFONT font);

  WindowView& window_;
  Font font_;
};

std::u16string textOf(HWND window);

struct MouseChange {
  forms::MouseButton button;
  bool pressed;
};
/// What a message says of a button of the mouse, if anything.
std::optional<MouseChange> mouseChange(UINT message);
/// Whether the place that a mouse message names is inside of the window.
bool isInside(HWND window, LPARAM where);

}  // namespace kvrnstep::windows
