#pragma once

#include <windows.h>
// After the other one.
#include <commctrl.h>

#include "forms/control.h"

namespace kvrnstep::windows {

/// The window that a user types into, of a text box or of a combo box. Its keys are asked about,
/// and its text and its mark told of when the user has changed them.
class Edit {
 public:
  explicit Edit(forms::TextControl& box) : box_(box) {}
  ~Edit();
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;

  /// To be called once, with the window.
  void adopt(HWND handle);
  [[nodiscard]] HWND handle() const { return handle_; }

  /// Takes over the control's text and caret.
  void showText();
  void showSelection();
  [[nodiscard]] forms::TextSelection selection() const;
  void select(forms::TextSelection selection);
  /// The window tells that its text has changed.
  void edited();

  /// What the window shows of a property of its text; nothing for other properties.
  [[nodiscard]] std::optional<forms::PropertyValue> shown(forms::Property property) const;

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wide, LPARAM longer,
                                    UINT_PTR id, DWORD_PTR edit);
  LRESULT received(UINT message, WPARAM wide, LPARAM longer);
  bool entered();
  void markPair(bool beforeCaret);
  [[nodiscard]] LRESULT wantedKeys(WPARAM wide, LPARAM longer) const;
  [[nodiscard]] bool showsText() const;
  void reportSelection();

  forms::TextControl& box_;
  HWND handle_ = nullptr;
  bool showing_ = false;
};

}  // namespace kvrnstep::windows
