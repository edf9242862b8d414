#pragma once

#include <windows.h>
// After the other one.
#include <commctrl.h>

#include <bitset>
#include <optional>

#include "forms/control.h"
#include "handle.h"

namespace kvrnstep::windows {

class AccessibleNames;
class WindowView;

/// Properties that have changed since they were last drawn.
class Changes {
 public:
  void add(forms::Property property) { bits_.set(static_cast<std::size_t>(property)); }
  void addAll() { bits_.set(); }
  [[nodiscard]] bool any() const { return bits_.any(); }
  [[nodiscard]] bool has(forms::Property property) const {
    return bits_.test(static_cast<std::size_t>(property));
  }

 private:
  std::bitset<32> bits_;
};

/// Draws one control with a window of the system and passes the user's actions on it on.
class ControlView {
 public:
  ControlView(WindowView& window, forms::Control& control) : window_(window), control_(control) {}
  virtual ~ControlView();
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  [[nodiscard]] forms::Control& control() const { return control_; }
  [[nodiscard]] HWND handle() const { return handle_; }
  /// The window that takes the keys; the one above, but for boxes that lie in another one.
  [[nodiscard]] virtual HWND keyTarget() const { return handle_; }
  void mark(forms::Property property) { changes_.add(property); }
  void markAll() { changes_.addAll(); }
  /// Brings the window in line with what has changed.
  void applyChanges();
  /// The window's monitor has another density now.
  void rescale();

  /// Whether Tab leads to the control as long as it is reachable.
  [[nodiscard]] virtual bool takesFocus() const { return false; }
  void allowTab(bool allowed);
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

  /// What the window really shows of a property; nothing where it does not tell.
  [[nodiscard]] virtual std::optional<forms::PropertyValue> shown(forms::Property property) const;

 protected:
  /// To be called by the constructor of each kind.
  void create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0,
              void* parameter = nullptr);
  /// Draws what is of this kind of control; the base draws what all kinds have.
  virtual void apply(const Changes& changes);
  /// The place of the window in its parent, in pixels.
  [[nodiscard]] virtual RECT place() const;
  /// A message of the window; whoever overrides it passes the rest on.
  virtual LRESULT received(UINT message, WPARAM wide, LPARAM longer);

  void useFont(HFONT font);
  void showCaption();
  /// The caption that the window shows, with its mark where the control's own has it.
  [[nodiscard]] std::u16string shownCaption() const;

  /// While the program changes the window, what it tells is not the user's doing.
  [[nodiscard]] bool applying() const { return applying_; }
  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wide, LPARAM longer,
                                    UINT_PTR id, DWORD_PTR view);
  void applyPlace();

  WindowView& window_;
  forms::Control& control_;
  HWND handle_ = nullptr;
  Changes changes_;
  bool applying_ = false;
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
