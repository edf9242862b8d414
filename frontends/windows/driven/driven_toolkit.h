#pragma once

#include <memory>
#include <vector>

#include "forms/driven_over.h"
#include "ticker.h"
#include "windows_toolkit.h"

namespace kvrnstep::windows {

/// The toolkit that people use, with a pilot in the place of its user.
class DrivenWindowsToolkit final : public forms::DrivenOver<WindowsToolkit>, private Attendant {
 public:
  DrivenWindowsToolkit() : DrivenOver(static_cast<Attendant*>(this)) {}

  bool click(forms::Control& control, forms::MouseButton button, std::optional<int> entry) override;
  bool doubleClick(forms::Control& control, std::optional<int> entry) override;
  bool type(forms::TextControl& box, std::u16string_view text) override;
  bool clear(forms::TextControl& box) override;
  bool select(forms::TextControl& box, forms::TextSelection selection) override;
  bool press(forms::Window& window, std::string_view keys) override;
  bool choose(forms::ComboBox& combo, int entry) override;
  bool spin(forms::Spinner& spinner, bool up) override;
  bool drag(forms::Control& from, forms::Control& to) override;
  bool pick(forms::MenuEntry& entry) override;
  bool escape() override;
  bool move(forms::Window& window, double left, double top) override;
  bool resize(forms::Window& window, double width, double height) override;
  bool minimize(forms::Window& window, bool minimized) override;
  bool close(forms::Window& window) override;

  std::optional<forms::PropertyValue> shown(const forms::Control& control,
                                            forms::Property property) override;

 private:
  void windowIdle(WindowView& view) override;
  void messageOpens() override;
  void questionOpens() override;
  void fileBoxOpens() override;
  void popUpOpens(WindowView& view, const forms::MenuEntry& menu) override;
  void boxClosed() override;

  void actInPopUp();
  void settle();
  /// The open view of the window, or null.
  [[nodiscard]] WindowView* viewOf(const forms::Control& control) const {
    return native().viewOf(control.window());
  }
  /// Carries out a gesture on the window that shows the control.
  template <class Gesture>
  bool onViewOf(const forms::Window& window, Gesture gesture) {
    WindowView* view = native().viewOf(window);
    return view != nullptr && gesture(*view, [this] { settle(); });
  }

  /// The pop-up menu that is open.
  struct PopUp {
    WindowView* view;
    const forms::MenuEntry* menu;
    bool leaving;
  };

  std::vector<std::unique_ptr<Ticker>> tickers_;  ///< of the boxes that are open
  std::optional<PopUp> popUp_;
};

}  // namespace kvrnstep::windows
