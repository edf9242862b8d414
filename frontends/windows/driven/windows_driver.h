#pragma once

#include "driving/widget_driver.h"
#include "ticker.h"
#include "windows_toolkit.h"

namespace kvrnstep::windows {

/// Hands input to the system as the drivers of mouse and keyboard do. It is queued, and the next
/// loop that runs handles it.
class WindowsDriver final : public driving::WidgetDriver, private Attendant {
 public:
  forms::Toolkit& toolkit() override { return native_; }

 protected:
  void callAct(bool on) override;
  void settle() override;
  bool waits(const forms::Window& window) override;
  void bringToFront(const forms::Window& window) override;

  std::optional<Spot> spotOf(const forms::Control& control, Part part, int entry) override;
  bool clickAt(const Spot& spot, forms::MouseButton button, bool twice) override;
  bool drag(const Spot& from, const Spot& to) override;
  void strike(std::u16string_view character) override;

  void move(const forms::Window& window, forms::PixelPoint place) override;
  void resize(const forms::Window& window, forms::PixelSize inner) override;
  void useFrame(const forms::Window& window, driving::Gesture::What what) override;

  void* openBox() override;
  void enterLine(void* box) override;
  void agree(void* box) override;

  [[nodiscard]] std::optional<driving::Value> seen(const forms::Control& control,
                                                   std::string_view property) const override;

 private:
  void windowIdle(WindowView& /*view*/) override { act(); }
  static ControlView& viewOf(const forms::Control& control) {
    return WindowView::of(control.window())->viewOf(control);
  }
  static std::optional<Spot> spotOfEntry(const forms::Control& entry);
  /// Deals with input until the widget holds the mouse, or no longer.
  bool waitForCapture(HWND widget, bool held);

  WindowsToolkit native_{this};
  std::optional<Ticker> ticker_;
};

}  // namespace kvrnstep::windows
