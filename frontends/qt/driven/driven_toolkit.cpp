#include "driven_toolkit.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "gestures.h"
#include "shown.h"
#include "text.h"
#include "user_input.h"

namespace kvrnstep::qt {

namespace {

void replaceText(QLineEdit& line, std::u16string_view text) {
  line.setFocus();
  line.selectAll();
  if (text.empty()) pressKey(*line.window(), Qt::Key_Delete);
  typeText(*line.window(), text, [] { return true; });
}

void answerQuestion(QuestionBox& box, const std::optional<std::u16string>& answer) {
  waitForUser(box);
  if (answer) replaceText(box.line(), *answer);
  closeBox(box, answer ? Qt::Key_Return : Qt::Key_Escape);
}

/// Deals with what a file dialog may ask or say before it closes: it may replace the file, and a
/// complaint is read.
void answerComplaints(FileBox& box) {
  auto* watch = new QTimer(&box);
  QObject::connect(watch, &QTimer::timeout, &box, [] {
    auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (message == nullptr) return;
    QAbstractButton* yes = message->button(QMessageBox::Yes);
    click(yes != nullptr ? *yes : *message->buttons().first());
  });
  watch->start(1);
}

void answerFileBox(FileBox& box, const std::optional<std::u16string>& answer) {
  if (!answer) {
    closeBox(box, Qt::Key_Escape);
    return;
  }
  waitForUser(box);
  auto& line = *box.findChild<QLineEdit*>();
  // Its proposals would take the key.
  line.setCompleter(nullptr);
  replaceText(line, *answer);
  answerComplaints(box);
  if (!closeBox(box, Qt::Key_Return)) closeBox(box, Qt::Key_Escape);
}

}  // namespace

void DrivenQtToolkit::windowOpened(WindowView& view) {
  waitForUser(view.topLevel());
  actSoon(view);
}

void DrivenQtToolkit::actSoon(WindowView& view) {
  // The window is the timer's context: nothing is called for a window that is gone.
  QTimer::singleShot(0, &view.topLevel(), [this, &view] {
    settle();
    if (!view.open()) return;
    view.topLevel().repaint();
    player().act();
    if (view.open()) actSoon(view);
  });
}

void DrivenQtToolkit::messageOpened(QMessageBox& box) {
  QTimer::singleShot(0, &box, [&box] { closeBox(box, Qt::Key_Return); });
}

void DrivenQtToolkit::questionOpened(QuestionBox& box) {
  QTimer::singleShot(0, &box, [this, &box] { answerQuestion(box, player().answer()); });
}

void DrivenQtToolkit::fileBoxOpened(FileBox& box) {
  QTimer::singleShot(0, &box, [this, &box] { answerFileBox(box, player().answer()); });
}

void DrivenQtToolkit::popUpOpened(QMenu& menu) {
  popUp_ = &menu;
  actInPopUp(menu);
}

void DrivenQtToolkit::actInPopUp(QMenu& menu) {
  QTimer::singleShot(0, &menu, [this, &menu] {
    settle();
    if (!menu.isVisible()) return;
    player().act();
    if (menu.isVisible()) actInPopUp(menu);
  });
}

bool DrivenQtToolkit::escape() {
  if (popUp_ == nullptr || !popUp_->isVisible()) return false;
  pressKey(*popUp_, Qt::Key_Escape);
  return !popUp_->isVisible();
}

bool DrivenQtToolkit::carryOut(const driving::Gesture& gesture) {
  if (gesture.what == driving::Gesture::What::Escape) return escape();
  WindowView* view = native().viewOf(gesture.window);
  return view != nullptr && qt::carryOut(*view, gesture);
}

std::optional<driving::Value> DrivenQtToolkit::shown(const forms::Control& control,
                                                     std::string_view property) {
  const WindowView* view = native().viewOf(control.window());
  return view == nullptr ? std::nullopt : qt::shown(*view, control, property);
}

}  // namespace kvrnstep::qt
