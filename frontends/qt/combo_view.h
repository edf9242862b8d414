#pragma once

#include <QComboBox>

#include "control_view.h"
#include "entries_model.h"
#include "line_edit.h"

namespace kvrnstep::qt {

class EntryCombo;

/// A line of text with a drop-down list.
class ComboView : public ControlView {
 public:
  ComboView(WindowView& window, forms::ComboBox& combo);

 protected:
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  [[nodiscard]] forms::TextSync* text() override { return edit_; }

 private:
  void chosen(int index);
  [[nodiscard]] forms::ComboBox& combo() const { return static_cast<forms::ComboBox&>(control()); }

  EntryCombo* box_;
  EntriesModel* entries_;
  LineEdit* edit_;
};

}  // namespace kvrnstep::qt
