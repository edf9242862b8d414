#pragma once

#include <vector>

#include "control_view.h"

namespace kvrnstep::windows {

/// A list of entries of which one can be selected.
class ListView : public ControlView {
 public:
  ListView(WindowView& window, forms::ListBox& list);

  /// Below the selected entry.
  [[nodiscard]] std::optional<POINT> menuPlace() const override;
  void commanded(int notification) override;
  /// The first entry that equals a text but for letter case; −1 for none.
  [[nodiscard]] int find(const std::u16string& text) const;

 protected:
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  void setTopIndex(int index) override;
  [[nodiscard]] forms::Scroll scroll() const override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  [[nodiscard]] int selected() const;
  [[nodiscard]] int top() const;
  [[nodiscard]] forms::ListBox& list() const { return static_cast<forms::ListBox&>(control()); }

  std::vector<std::u16string> entries_;  ///< as the window shows them
};

}  // namespace kvrnstep::windows
