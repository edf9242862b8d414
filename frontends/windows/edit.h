#pragma once

#include "forms/control_sync.h"
#include "window_class.h"

namespace kvrnstep::windows {

/// Has an edit control of one line show it in the middle of its height, where the caption beside it
/// is too. The system's own place is the upper edge, whatever the height.
class CentredLine final : public Receiver {
 public:
  void centre(HWND edit);

 protected:
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  [[nodiscard]] RECT withinFrame() const;
  void shrink(RECT& inside) const;
  void fillBands() const;
};

/// The window that a user types into, of a text box or of a combo box. Its keys are asked about.
class Edit final : public forms::TextSync, public Receiver {
 public:
  using TextSync::TextSync;

  /// To be called once, with the window.
  void begin(HWND edit);
  /// The window tells that its text has changed.
  void changed();

  [[nodiscard]] std::u16string shownText() const override;
  void setSelection(forms::TextSelection selection) override;

 protected:
  [[nodiscard]] forms::TextSelection selectionIn(const std::u16string& text) const override;
  void setText(const std::u16string& text) override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  bool entered();
  void markPair(bool beforeCaret);
  [[nodiscard]] LRESULT wantedKeys(WPARAM wide, LPARAM longer);

  CentredLine line_;
};

}  // namespace kvrnstep::windows
