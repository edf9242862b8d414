#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "accessible_names.h"
#include "control_view.h"
#include "forms/window.h"
#include "menu_bar.h"
#include "tool_tips.h"
#include "window_class.h"

namespace kvrnstep::windows {

/// Draws one window for as long as it is open.
class WindowView final : public forms::View, public Receiver {
 public:
  WindowView(forms::Window& window, HWND owner);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

  [[nodiscard]] forms::Window& window() const { return window_; }
  /// Null when somebody else has destroyed it.
  [[nodiscard]] HWND handle() const { return handle_; }
  [[nodiscard]] ControlView& viewOf(const forms::Control& control) const;
  /// What is shown of a control or a menu entry; nothing where that cannot be told.
  [[nodiscard]] std::optional<forms::PropertyValue> shown(const forms::Control& control,
                                                          forms::Property property) const;
  [[nodiscard]] const MenuBar& menus() const { return menus_; }
  /// False when the window has been unloaded, or somebody else has destroyed it on the screen.
  [[nodiscard]] bool open() const { return !unloaded_ && handle_ != nullptr; }

  void show();
  /// Deals with a message of the thread that is a shortcut or leads the keyboard about in this
  /// window. False: it is for somebody else.
  bool translates(MSG& message);
  /// Whether the mouse shows that the user has to wait.
  void setBusy(bool busy);
  [[nodiscard]] bool busy() const { return busy_; }

  // For the views of the controls.
  [[nodiscard]] HWND parentFor(const forms::Control& control) const;
  [[nodiscard]] RECT pixelPlace(const forms::Control& control) const;
  [[nodiscard]] int dpi() const { return dpi_; }
  [[nodiscard]] HFONT captionFont() const { return captionFont_.get(); }
  /// The control that a click at that point of the screen would meet, or null.
  [[nodiscard]] forms::Control* controlAt(POINT onScreen) const;
  [[nodiscard]] std::u16string toolTipOf(HWND control) const { return tips_.textFor(control); }
  /// Where a pop-up menu opens: at the mouse, or where the keyboard has asked for it.
  [[nodiscard]] POINT menuPlace() const;
  /// Calls the view's afterwards() when all that is under way has been dealt with.
  void later(ControlView& view);

  // forms::View
  void changed(forms::Control& control, forms::Property property) override;
  void changed(forms::Property property) override;
  void update() override;
  void setFocus(forms::Control& control) override;
  std::optional<int> findEntry(const forms::ListBox& list, const std::u16string& text) override;
  void unloaded() override;

 private:
  LRESULT received(HWND window, UINT message, WPARAM wide, LPARAM longer) override;
  std::optional<LRESULT> reflected(UINT message, WPARAM wide, LPARAM longer);
  LRESULT receivedByWindow(UINT message, WPARAM wide, LPARAM longer);
  void commanded(UINT command);
  [[nodiscard]] ControlView* viewAt(HWND window) const;

  int create(HWND owner);
  void build();
  std::unique_ptr<ControlView> makeView(forms::Control& control);
  void connectSpinners();

  void applyMenus();
  void applyWindow(const Changes& changes);
  void applySize();
  void applyPosition();
  void arrange();
  void arrangeDepth(const std::vector<forms::Control*>& order);
  void giveFocus(HWND before);
  void enteredByKey();
  void tellOf(const MSG& message);
  [[nodiscard]] ControlView* viewWithKeys(HWND target) const;
  bool pressed(const MSG& message);
  bool activatedBy(char16_t letter);
  [[nodiscard]] bool holdsKeys(HWND control) const;
  [[nodiscard]] HWND stopAfter(HWND before) const;

  void activated(bool active);
  void reportMove();
  void reportSize(WPARAM kind);
  void reportResize();
  void limitSize(MINMAXINFO& limits) const;
  void rescale(int dpi, const RECT& proposed);
  void recolor(UINT message, WPARAM wide, LPARAM longer);

  [[nodiscard]] int pixels(double units) const;
  [[nodiscard]] SIZE inside() const;

  forms::Window& window_;
  MenuBar menus_;
  DWORD style_;
  HWND handle_ = nullptr;
  int dpi_;
  Font captionFont_;
  ToolTips tips_;
  std::optional<AccessibleNames> names_{std::in_place};
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unordered_map<const forms::Control*, ControlView*> byControl_;
  std::unordered_map<HWND, ControlView*> byHandle_;
  std::unordered_set<const forms::Control*> changedEntries_;
  std::vector<HWND> depth_;
  Changes changes_;
  std::optional<POINT> menuPlace_;
  POINT position_{};  ///< of the frame, as it was last shown or reported
  forms::Control* focus_;
  HWND lastFocus_ = nullptr;
  bool arrangementChanged_ = true;
  bool updating_ = false;
  bool unloaded_ = false;
  bool busy_ = false;
};

}  // namespace kvrnstep::windows
