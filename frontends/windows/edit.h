#pragma once

#include <windows.h>
// After the other one.
#include <commctrl.h>

#include "forms/control_sync.h"

namespace kvrnstep::windows {

/// The window that a user types into, of a text box or of a combo box. Its keys are asked about.
class Edit final : public forms::TextSync {
 public:
  using TextSync::TextSync;
  ~Edit() override;
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;

  /// To be called once, with the window.
  void adopt(HWND handle);
  [[nodiscard]] HWND handle() const { return handle_; }

  /// The window tells that its text has changed.
  void changed();

  [[nodiscard]] std::u16string shownText() const override;
  void setSelection(forms::TextSelection selection) override;

 protected:
  [[nodiscard]] forms::TextSelection selectionIn(const std::u16string& text) const override;
  void setText(const std::u16string& text) override;

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wide, LPARAM longer,
                                    UINT_PTR id, DWORD_PTR edit);
  LRESULT received(UINT message, WPARAM wide, LPARAM longer);
  bool entered();
  void markPair(bool beforeCaret);
  [[nodiscard]] LRESULT wantedKeys(WPARAM wide, LPARAM longer) const;

  HWND handle_ = nullptr;
};

}  // namespace kvrnstep::windows
