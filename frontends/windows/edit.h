#pragma once

#include "forms/control_sync.h"
#include "window_class.h"

namespace kvrnstep::windows {

/// Centres the line of an edit control vertically, as the caption beside it is. By itself the
/// control shows it at its upper edge.
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

/// The edit control of a text box or a combo box.
class Edit final : public forms::TextSync, public Receiver {
 public:
  using TextSync::TextSync;

  /// To be called once, when the control exists.
  void begin(HWND edit);

  [[nodiscard]] std::u16string shownText() const override;
  void setSelection(forms::TextSelection selection) override;

 protected:
  [[nodiscard]] forms::TextSelection selectionIn(const std::u16string& text) const override;
  void setText(const std::u16string& text) override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void showFocus(UINT message) const;
  bool entered();
  void markPair(bool beforeCaret);
  [[nodiscard]] LRESULT wantedKeys(WPARAM wide, LPARAM longer);

  CentredLine line_;
};

}  // namespace kvrnstep::windows
