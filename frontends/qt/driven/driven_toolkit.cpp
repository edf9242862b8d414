#include "driven_toolkit.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "gestures.h"
#include "text.h"
#include "user_input.h"

namespace kvrnstep::qt {

using forms::Control;
using forms::Window;

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
    pilot().act();
    if (view.open()) actSoon(view);
  });
}

void DrivenQtToolkit::messageOpened(QMessageBox& box) {
  QTimer::singleShot(0, &box, [&box] { closeBox(box, Qt::Key_Return); });
}

void DrivenQtToolkit::questionOpened(QuestionBox& box) {
  QTimer::singleShot(0, &box, [this, &box] { answerQuestion(box, pilot().answer()); });
}

void DrivenQtToolkit::fileBoxOpened(FileBox& box) {
  QTimer::singleShot(0, &box, [this, &box] { answerFileBox(box, pilot().answer()); });
}

void DrivenQtToolkit::popUpOpened(QMenu& menu) {
  popUp_ = &menu;
  actInPopUp(menu);
}

void DrivenQtToolkit::actInPopUp(QMenu& menu) {
  QTimer::singleShot(0, &menu, [this, &menu] {
    settle();
    if (!menu.isVisible()) return;
    pilot().act();
    if (menu.isVisible()) actInPopUp(menu);
  });
}

bool DrivenQtToolkit::escape() {
  if (popUp_ == nullptr || !popUp_->isVisible()) return false;
  pressKey(*popUp_, Qt::Key_Escape);
  return !popUp_->isVisible();
}

bool DrivenQtToolkit::click(Control& control, forms::MouseButton button, std::optional<int> entry) {
  WindowView* view = viewOf(control);
  return view != nullptr && clickControl(*view, control, button, false, entry);
}

bool DrivenQtToolkit::doubleClick(Control& control, std::optional<int> entry) {
  WindowView* view = viewOf(control);
  return view != nullptr && clickControl(*view, control, forms::MouseButton::Left, true, entry);
}

bool DrivenQtToolkit::type(forms::TextControl& box, std::u16string_view text) {
  WindowView* view = viewOf(box);
  return view != nullptr && typeText(*view, box, text);
}

bool DrivenQtToolkit::clear(forms::TextControl& box) {
  WindowView* view = viewOf(box);
  return view != nullptr && clearText(*view, box);
}

bool DrivenQtToolkit::select(forms::TextControl& box, forms::TextSelection selection) {
  WindowView* view = viewOf(box);
  return view != nullptr && selectText(*view, box, selection);
}

bool DrivenQtToolkit::press(Window& window, std::string_view keys) {
  WindowView* view = native().viewOf(window);
  return view != nullptr && pressShortcut(*view, keys);
}

bool DrivenQtToolkit::choose(forms::ComboBox& combo, int entry) {
  WindowView* view = viewOf(combo);
  return view != nullptr && chooseEntry(*view, combo, entry);
}

bool DrivenQtToolkit::spin(forms::Spinner& spinner, bool up) {
  WindowView* view = viewOf(spinner);
  return view != nullptr && clickArrow(*view, spinner, up);
}

bool DrivenQtToolkit::drag(Control& from, Control& to) {
  WindowView* view = viewOf(from);
  return view != nullptr && dragOnto(*view, from, to);
}

bool DrivenQtToolkit::pick(forms::MenuEntry& entry) {
  WindowView* view = viewOf(entry);
  return view != nullptr && pickEntry(*view, entry);
}

bool DrivenQtToolkit::move(Window& window, double left, double top) {
  WindowView* view = native().viewOf(window);
  return view != nullptr && moveWindow(*view, left, top);
}

bool DrivenQtToolkit::resize(Window& window, double width, double height) {
  WindowView* view = native().viewOf(window);
  return view != nullptr && resizeWindow(*view, width, height);
}

bool DrivenQtToolkit::minimize(Window& window, bool minimized) {
  WindowView* view = native().viewOf(window);
  return view != nullptr && minimizeWindow(*view, minimized);
}

bool DrivenQtToolkit::close(Window& window) {
  WindowView* view = native().viewOf(window);
  return view != nullptr && closeWindow(*view);
}

std::optional<forms::PropertyValue> DrivenQtToolkit::shown(const Control& control,
                                                           forms::Property property) {
  const WindowView* view = viewOf(control);
  return view == nullptr ? std::nullopt : view->viewOf(control).shown(property);
}

}  // namespace kvrnstep::qt
