#include "qt_toolkit.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "clipboard.h"
#include "locale_guard.h"
#include "qt_fonts.h"
#include "text.h"

namespace kvrnstep::qt {

using forms::kTwipsPerPixel;

QWidget* QtToolkit::owner() {
  for (WindowView* view : open_) view->update();
  return open_.empty() ? nullptr : &open_.back()->topLevel();
}

void QtToolkit::runModal(forms::Window& window) {
  const LocaleGuard locale;
  WindowView view(window, owner());
  open_.push_back(&view);
  window.attach(&view);
  view.show();
  if (attendant_ != nullptr) attendant_->windowOpened(view);
  view.waitUntilUnloaded();
  window.attach(nullptr);
  open_.pop_back();
}

void QtToolkit::showMessage(const forms::Message& message) {
  const LocaleGuard locale;
  QMessageBox box(message.icon == forms::MessageIcon::Information ? QMessageBox::Information
                                                                  : QMessageBox::Warning,
                  toQt(message.title), toQt(message.text), QMessageBox::Ok, owner());
  box.setTextFormat(Qt::PlainText);
  box.setAttribute(Qt::WA_QuitOnClose, false);
  box.setFont(captionFont());
  box.button(QMessageBox::Ok)->setIcon({});
  if (attendant_ != nullptr) attendant_->messageOpened(box);
  box.exec();
}

std::optional<std::u16string> QtToolkit::ask(const forms::Question& question) {
  const LocaleGuard locale;
  QuestionBox box(question, owner());
  if (attendant_ != nullptr) attendant_->questionOpened(box);
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return fromQt(box.line().text());
}

double QtToolkit::screenWidth() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 0 : screen->geometry().width() * kTwipsPerPixel;
}

double QtToolkit::screenHeight() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 0 : screen->geometry().height() * kTwipsPerPixel;
}

void QtToolkit::letEventsRun() {
  // Nothing runs in between. What the user does meanwhile stays queued, so that a typed character
  // never meets controls that are half refreshed, and what is drawn is drawn once, at the end.
}

void QtToolkit::setClipboard(const std::u16string& text) {
  const LocaleGuard locale;
  putOnClipboard(toQt(text));
}

void QtToolkit::playSound(const std::u16string& /*file*/, forms::SoundMode /*mode*/) {
  // Every sound counts as one that cannot be played, and is silent.
}

WindowView* QtToolkit::viewOf(const forms::Window& window) const {
  const auto found = std::ranges::find_if(
      open_, [&](const WindowView* view) { return &view->window() == &window; });
  return found == open_.end() ? nullptr : *found;
}

}  // namespace kvrnstep::qt
