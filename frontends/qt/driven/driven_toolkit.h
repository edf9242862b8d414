#pragma once

#include <QPointer>

#include "driving/driven_over.h"
#include "qt_toolkit.h"

namespace kvrnstep::qt {

/// The toolkit that people use, with a player in the place of its user.
class DrivenQtToolkit final : public driving::DrivenOver<QtToolkit>, private Attendant {
 public:
  DrivenQtToolkit() : DrivenOver(static_cast<Attendant*>(this)) {}

  bool carryOut(const driving::Gesture& gesture) override;
  std::optional<driving::Value> shown(const forms::Control& control,
                                      std::string_view property) override;

 private:
  void windowOpened(WindowView& view) override;
  void messageOpened(QMessageBox& box) override;
  void questionOpened(QuestionBox& box) override;
  void fileBoxOpened(FileBox& box) override;
  void popUpOpened(QMenu& menu) override;

  /// Lets the player act once as soon as nothing else is waiting, and again after that.
  void actSoon(WindowView& view);
  void actInPopUp(QMenu& menu);
  bool escape();

  QPointer<QMenu> popUp_;
};

}  // namespace kvrnstep::qt
