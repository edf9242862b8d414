#pragma once

#include "control_view.h"
#include "edit.h"

namespace kvrnstep::windows {

/// A list of entries of which one can be selected.
class ListView : public ControlView {
 public:
  ListView(WindowView& window, forms::ListBox& list);

  [[nodiscard]] std::optional<forms::PixelPoint> menuPlace() const override;
  /// The first entry that equals a text but for letter case; −1 for none.
  [[nodiscard]] int find(const std::u16string& text) const;
  std::optional<LRESULT> told(UINT message, WPARAM wide, LPARAM longer) override;

 protected:
  void commanded(int notification) override;
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  void setTopIndex(int index) override;
  [[nodiscard]] forms::Scroll scroll() const override;
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  [[nodiscard]] int asked(UINT message) const;
  void draw(const DRAWITEMSTRUCT& entry) const;
  [[nodiscard]] std::u16string shownOf(HDC context, const std::u16string& entry) const;
  void hover(LPARAM where);

  std::u16string tip_;
};

/// A line of text with a drop-down list.
class ComboView : public ControlView {
 public:
  ComboView(WindowView& window, forms::ComboBox& combo);

  [[nodiscard]] HWND keyTarget() const override { return edit_.handle(); }
  /// While the list is open, Escape closes it and the arrows move in it.
  [[nodiscard]] bool usesKeys() const override;

 protected:
  void commanded(int notification) override;
  void setPlace(const forms::PixelRect& place) override;
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  [[nodiscard]] forms::TextSync* text() override { return &edit_; }
  LRESULT received(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void takeOver();
  [[nodiscard]] int selected() const;

  Edit edit_;
  int depth_ = 0;  ///< of the messages that are being dealt with
  bool chosen_ = false;
  bool changed_ = false;
};

}  // namespace kvrnstep::windows
