#pragma once

#include "control_view.h"
#include "edit.h"

namespace kvrnstep::windows {

/// A line of text with a drop-down list.
class ComboView : public ControlView {
 public:
  ComboView(WindowView& window, forms::ComboBox& combo);

  [[nodiscard]] HWND keyTarget() const override { return edit_.handle(); }
  /// An open list closes with Escape, and takes the arrows.
  [[nodiscard]] bool usesKeys() const override;
  void commanded(int notification) override;
  void afterwards() override;

 protected:
  void setPlace(const forms::PixelRect& place) override;
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  [[nodiscard]] forms::TextSync* text() override { return &edit_; }

 private:
  void setHeight(int height);
  void putOff();
  [[nodiscard]] int selected() const;
  [[nodiscard]] forms::ComboBox& combo() const { return static_cast<forms::ComboBox&>(control()); }

  Edit edit_;
  std::vector<std::u16string> entries_;  ///< as the list shows them
  bool chosen_ = false;
  bool waiting_ = false;
};

}  // namespace kvrnstep::windows
