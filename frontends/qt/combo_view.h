#pragma once

#include <QComboBox>

#include "control_view.h"

namespace kvrnstep::qt {

/// A line of text with a drop-down list.
class ComboView : public ControlView {
 public:
  ComboView(WindowView& window, forms::ComboBox& combo);

  [[nodiscard]] bool usesKeys() const override;

 protected:
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  [[nodiscard]] forms::TextSync* text() override;

 private:
  [[nodiscard]] QComboBox& box() const { return static_cast<QComboBox&>(*widget()); }
};

}  // namespace kvrnstep::qt
