#include "qt_toolkit.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <utility>

#include "clipboard.h"
#include "line_breaks.h"
#include "locale_guard.h"
#include "menu_view.h"
#include "module_folder.h"
#include "services/services.h"
#include "text.h"

namespace kvrnstep::qt {

using forms::kTwipsPerPixel;

namespace {

/// A box that ends with its scope, or before, when somebody destroys its owner.
template <class Widget>
class OwnedBox : public QPointer<Widget> {
 public:
  using QPointer<Widget>::QPointer;
  ~OwnedBox() { delete this->data(); }
  OwnedBox(const OwnedBox&) = delete;
  OwnedBox& operator=(const OwnedBox&) = delete;
};

}  // namespace

QWidget* QtToolkit::owner() {
  for (WindowView* view : open_) view->update();
  return open_.empty() || !open_.back()->open() ? nullptr : &open_.back()->topLevel();
}

void QtToolkit::runModal(forms::Window& window) {
  const LocaleGuard locale;
  WindowView view(window, owner());
  const forms::Attached attached(view, open_);
  view.show();
  view.waitUntilUnloaded();
}

void QtToolkit::bringToFront() {
  for (WindowView* view : open_) {
    if (!view->open()) continue;
    QWidget& window = view->topLevel();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  }
  bringModalWindowToFront();
}

void QtToolkit::showMessage(const forms::Message& message) {
  const LocaleGuard locale;
  const OwnedBox<MessageBox> box(new MessageBox(message, owner()));
  box->exec();
}

std::optional<std::u16string> QtToolkit::ask(const forms::Question& question) {
  const LocaleGuard locale;
  const OwnedBox<QuestionBox> box(new QuestionBox(question, owner()));
  if (box->exec() != QDialog::Accepted) return std::nullopt;
  return fromQt(box->textValue());
}

std::optional<std::u16string> QtToolkit::ShowOpenDialog(const forms::FileDialog& dialog) {
  return askFile(dialog, QFileDialog::AcceptOpen);
}

std::optional<std::u16string> QtToolkit::ShowSaveDialog(const forms::FileDialog& dialog) {
  return askFile(dialog, QFileDialog::AcceptSave);
}

std::optional<std::u16string> QtToolkit::askFile(const forms::FileDialog& dialog,
                                                 QFileDialog::AcceptMode mode) {
  const LocaleGuard locale;
  const OwnedBox<FileBox> box(new FileBox(dialog, mode, owner()));
  if (box->exec() != QDialog::Accepted || box->selectedFiles().isEmpty()) return std::nullopt;
  return fromQt(box->selectedFiles().first());
}

void QtToolkit::popUp(forms::MenuEntry& menu) {
  WindowView* view = WindowView::of(menu.window());
  if (view == nullptr || !view->open()) return;
  view->update();
  QMenu* shown = static_cast<MenuView&>(view->viewOf(menu)).menu();
  const auto place = view->menuPlace();
  shown->exec(place ? QPoint(place->left, place->top) : QCursor::pos());
}

void QtToolkit::print(const std::u16string& text) {
  const auto print = reinterpret_cast<decltype(&kvrnstepPrint)>(
      functionBeside("kvrnstep-cups.so", "kvrnstepPrint"));
  const QByteArray bytes = toQt(text).toUtf8();
  if (print != nullptr) print(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void QtToolkit::setBusy(bool busy) {
  if (busy) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

forms::Size QtToolkit::screenSize() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return {};
  return {screen->geometry().width() * kTwipsPerPixel,
          screen->geometry().height() * kTwipsPerPixel};
}

void QtToolkit::setClipboard(const std::u16string& text) {
  const LocaleGuard locale;
  putOnClipboard(widgetLines(text));
}

void QtToolkit::playSound(const std::u16string& file, forms::SoundMode mode) {
  const auto play = reinterpret_cast<decltype(&kvrnstepPlaySound)>(
      functionBeside("kvrnstep-sound.so", "kvrnstepPlaySound"));
  const int giveWay = mode == forms::SoundMode::GiveWay ? 1 : 0;
  if (play != nullptr) play(toQt(file).toUtf8().constData(), giveWay);
}

}  // namespace kvrnstep::qt
