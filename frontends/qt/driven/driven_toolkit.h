#pragma once

#include <QPointer>

#include "forms/driven_over.h"
#include "qt_toolkit.h"

namespace kvrnstep::qt {

/// The toolkit that people use, with a pilot in the place of its user.
class DrivenQtToolkit final : public forms::DrivenOver<QtToolkit>, private Attendant {
 public:
  DrivenQtToolkit() : DrivenOver(static_cast<Attendant*>(this)) {}

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
  void windowOpened(WindowView& view) override;
  void messageOpened(QMessageBox& box) override;
  void questionOpened(QuestionBox& box) override;
  void fileBoxOpened(FileBox& box) override;
  void popUpOpened(QMenu& menu) override;

  /// Lets the pilot act once as soon as nothing else is waiting, and again after that.
  void actSoon(WindowView& view);
  void actInPopUp(QMenu& menu);
  /// The open view of the window, or null.
  [[nodiscard]] WindowView* viewOf(const forms::Control& control) const {
    return native().viewOf(control.window());
  }

  QPointer<QMenu> popUp_;
};

}  // namespace kvrnstep::qt
