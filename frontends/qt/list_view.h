#pragma once

#include <QListView>

#include "control_view.h"

namespace kvrnstep::qt {

/// A list of entries of which one can be selected, with the left button only.
class ListView : public ControlView {
 public:
  ListView(WindowView& window, forms::ListBox& box);

  [[nodiscard]] std::optional<forms::PixelPoint> menuPlace() const override;

 protected:
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  void setTopIndex(int index) override;
  [[nodiscard]] forms::Scroll scroll() const override;

 private:
  [[nodiscard]] int selectedRow() const;
  [[nodiscard]] QListView& list() const { return static_cast<QListView&>(*widget()); }
};

}  // namespace kvrnstep::qt
