#pragma once

#include "driving/widget_driver.h"
#include "qt_toolkit.h"

namespace kvrnstep::qt {

/// Hands input to Qt as the window system does: the window finds the widget, modal windows block,
/// shortcuts are looked up.
class QtDriver final : public driving::WidgetDriver {
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
  static ControlView& viewOf(const forms::Control& control) {
    return WindowView::of(control.window())->viewOf(control);
  }
  static Spot spotIn(QWidget* widget, QPoint point) { return {widget, point.x(), point.y()}; }
  static std::optional<Spot> spotOfEntry(const forms::Control& entry);
  void look();

  QtToolkit native_;
  bool looking_ = false;    ///< the player acts
  bool lookIsDue_ = false;  ///< a timer runs
};

}  // namespace kvrnstep::qt
