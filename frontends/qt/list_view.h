#pragma once

#include <QListView>

#include "control_view.h"
#include "entries_model.h"
#include "mouse_releases.h"
#include "sharp_frame.h"

namespace kvrnstep::qt {

/// A list of entries of which one can be selected, with the left button only.
class EntryList : public SharpFrame<MouseReleases<QListView>> {
 public:
  using SharpFrame::SharpFrame;

  std::function<void()> onDoubleClickedBesideEntries;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

class ListView : public ControlView {
 public:
  ListView(WindowView& window, forms::ListBox& list);

  [[nodiscard]] QPoint menuPlace() const override;

 protected:
  void setItems(const std::vector<std::u16string>& items) override;
  void setIndex(int index) override;
  void setTopIndex(int index) override;
  [[nodiscard]] forms::Scroll scroll() const override;

 private:
  [[nodiscard]] int selectedRow() const;
  [[nodiscard]] forms::ListBox& list() const { return static_cast<forms::ListBox&>(control()); }

  EntryList* widget_;
  EntriesModel* entries_;
};

}  // namespace kvrnstep::qt
