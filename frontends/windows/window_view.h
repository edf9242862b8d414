#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "accessible_names.h"
#include "control_view.h"
#include "forms/view_sync.h"
#include "menu_bar.h"

namespace kvrnstep::windows {

/// Shows one window while it is open. The handle is null when somebody else has destroyed it.
class WindowView final : public forms::ViewSync, public Receiver {
 public:
  WindowView(forms::Window& window, HWND owner);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

  /// The view that shows a window, or null.
  static WindowView* of(const forms::Window& window) {
    return static_cast<WindowView*>(window.view());
  }
  [[nodiscard]] ControlView& viewOf(const forms::Control& control) const;
  [[nodiscard]] const MenuBar& menus() const { return menus_; }
  [[nodiscard]] MenuBar& menus() { return menus_; }

  void show();
  /// Deals with a message of the thread if it is a key that is a shortcut or moves the focus in
  /// this window. False: the message is to be dispatched.
  bool translates(MSG& message);

  // For the views of the controls.
  [[nodiscard]] HWND parentFor(const forms::Control& control) const;
  [[nodiscard]] int dpi() const { return dpi_; }
  [[nodiscard]] HFONT captionFont() const { return captionFont_.get(); }
  [[nodiscard]] HWND tips() const { return tips_.get(); }
  /// The control at a point of the screen, or null.
  [[nodiscard]] forms::Control* controlAt(POINT onScreen) const;
  /// Passes a message that a control has sent to its parent to the control's view.
  std::optional<LRESULT> reflected(UINT message, WPARAM wide, LPARAM longer);

  std::optional<int> findEntry(const forms::ListBox& list, const std::u16string& text) override;

 protected:
  std::unique_ptr<forms::ControlSync> makeView(forms::Control& control) override;
  void setTitle(const std::u16string& caption) override;
  void setInnerSize(forms::PixelSize size) override;
  void setPosition(forms::PixelPoint position) override;
  void setTabOrder(const std::vector<forms::Control*>& order) override;
  void giveKeyboard(const forms::Control* control) override;
  void vanish() override;
  [[nodiscard]] std::vector<forms::Rect> screens() const override;
  [[nodiscard]] forms::PixelSize frameSize() const override;
  [[nodiscard]] double desktopScale() const override;
  void updateBegins() override;

  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  /// The view that this window belongs to, or null.
  [[nodiscard]] ControlView* viewAt(HWND window) const;

  int create(HWND owner);
  void enteredByKey();
  void tellOf(const MSG& message);
  bool pressed(const MSG& message);
  [[nodiscard]] bool holdsKeys(HWND control) const;
  [[nodiscard]] HWND selectedFor(HWND held) const;
  [[nodiscard]] HWND stopAfter(HWND before) const;

  void activated(bool active);
  void reportPlace();
  void limitSize(MINMAXINFO& limits) const;
  void rescale(int dpi, const RECT& proposed);
  void setFrame(forms::PixelSize size, const POINT* corner);

  std::unordered_map<HWND, ControlView*> byHandle_;
  MenuBar menus_;
  DWORD style_;
  int dpi_;
  Font captionFont_;
  WindowHandle tips_;
  std::optional<AccessibleNames> names_{std::in_place};
  std::vector<HWND> depth_;
  HWND lastFocus_ = nullptr;
  HWND focusBefore_ = nullptr;  ///< where the focus was before the changes that are being shown
};

}  // namespace kvrnstep::windows
